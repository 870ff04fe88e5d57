/// The report on a chip package, written as text and as JSON.
#include "package/report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>

#include "bounding_box.h"
#include "clean_name.h"
#include "counted.h"
#include "kind_counts.h"
#include "mesh_checks.h"
#include "text_table.h"
#include "timed.h"
#include <kvocaeio/package.h>

namespace kvocaeio::host {

namespace {

/// "#rrggbb"; the first colour value is in the lowest byte.
std::string colorText(unsigned color) {
    char digits[8];
    std::snprintf(digits, sizeof digits, "#%02x%02x%02x", color & 0xffu, color >> 8 & 0xffu,
                  color >> 16 & 0xffu);
    return digits;
}

std::string colorText(const std::optional<unsigned>& color) {
    return color ? colorText(*color) : "";
}

std::string number(double value) {
    std::ostringstream digits;
    digits << value;
    return digits.str();
}

std::string range(double low, double high) {
    return low == high ? number(low) : number(low) + " to " + number(high);
}

}  // namespace

PackageReport::PackageReport(CKVOCadenceReader& reader, PackageSource source)
    : bodies_(takeBodies(reader, source)),
      profiles_(takeProfiles(reader)),
      wires_(static_cast<std::size_t>(std::max(0, reader.GetWireLineCount()))),
      source_(source) {
    warnOfNonFinite(static_cast<std::size_t>(
                        std::ranges::count_if(bodies_,
                                              [](const PackageBody& body) {
                                                  return !isFinitePlace(body.center.data()) ||
                                                         !isFinitePlace(body.size.data());
                                              })),
                    "bodies");
}

void PackageReport::print(std::ostream& out, const PageStyle& style) const {
    KindCounts kinds;
    for (const PackageBody& body : bodies_)
        count(kinds, body.kind + "s");
    TextTable table("lw");
    table.add(
        {"bodies", std::to_string(bodies_.size()) + (kinds.empty() ? "" : ": ") + asText(kinds)});
    table.add({"wires", std::to_string(wires_)});
    table.add({"time taken", secondsText(importSeconds)});
    table.print(out, style.width);
    printBodies(out, style);
    printBalls(out, style);
    printWires(out, style);
}

void PackageReport::printBodies(std::ostream& out, const PageStyle& style) const {
    TextTable table("lnwwl");
    table.add(
        {"body", "name", "centre mm", "size mm", source_ == PackageSource::k3di ? "colour" : ""});
    bool areAny = false;
    for (const PackageBody& body : bodies_) {
        if (body.isBall)
            continue;
        areAny = true;
        table.add(
            {body.kind, cleanName(body.name), asText(body.center),
             number(body.size[0]) + " x " + number(body.size[1]) + " x " + number(body.size[2]),
             colorText(body.color)});
    }
    if (!areAny)
        return;
    out << '\n';
    table.print(out, style.width);
}

// A package may have thousands of balls: those that look the same share a line.
void PackageReport::printBalls(std::ostream& out, const PageStyle& style) const {
    struct Balls {
        std::size_t number = 0;
        BoundingBox centers;
    };
    std::map<std::array<std::string, 3>, Balls> balls;
    for (const PackageBody& body : bodies_) {
        if (!body.isBall)
            continue;
        Balls& group = balls[{cleanName(body.name), number(body.size[0]), colorText(body.color)}];
        ++group.number;
        group.centers.add(body.center.data());
    }
    if (balls.empty())
        return;
    TextTable table("rnrlw");
    table.add({"balls", "layer", "diameter mm", "colour", "centres mm"});
    for (const auto& [key, group] : balls)
        table.add({std::to_string(group.number), key[0], key[1], key[2],
                   group.number == 1 ? asText(group.centers.low) : asText(group.centers)});
    out << '\n';
    table.print(out, style.width);
}

void PackageReport::printWires(std::ostream& out, const PageStyle& style) const {
    if (profiles_.empty())
        return;
    TextTable table("rnrwrrl");
    table.add({"profile", "model", "wires", "diameter mm", "points", "length mm", "colour"});
    for (const WireProfile& profile : profiles_)
        table.add(
            {std::to_string(profile.number),
             profile.name ? cleanName(*profile.name) : "(no such model)",
             std::to_string(profile.wires),
             profile.wires == 0 ? "-" : range(profile.smallestDiameter, profile.largestDiameter),
             std::to_string(profile.points), number(profile.length),
             profile.color ? colorText(*profile.color) : "-"});
    out << '\n';
    table.print(out, style.width);
}

void PackageReport::addTo(Json& object) const {
    Json bodies = Json::array();
    for (const PackageBody& body : bodies_) {
        Json entry = {{"kind", kindCode(body.kind)}, {"name", body.name}, {"center", body.center}};
        if (body.isBall)
            entry["diameter"] = body.size[0];
        else
            entry["size"] = {body.size[0], body.size[1], body.size[2]};
        if (source_ == PackageSource::k3di)
            entry["color"] = colorText(body.color);
        bodies.push_back(std::move(entry));
    }
    Json profiles = Json::array();
    for (const WireProfile& profile : profiles_)
        profiles.push_back({{"profile", profile.number},
                            {"model", profile.name ? Json(*profile.name) : Json()},
                            {"wires", profile.wires},
                            {"diameters", profile.wires == 0 ? Json()
                                                             : Json{profile.smallestDiameter,
                                                                    profile.largestDiameter}},
                            {"points", profile.points},
                            {"length", profile.length},
                            {"color", profile.color ? Json(colorText(*profile.color)) : Json()}});
    object["package"] = {
        {"bodies", std::move(bodies)}, {"wires", wires_}, {"wireProfiles", std::move(profiles)}};
}

std::vector<std::pair<std::string_view, double>> PackageReport::seconds() const {
    return {{"import", importSeconds}};
}

}  // namespace kvocaeio::host
