/// The report on a Patran neutral file, written as text and as JSON.
#include "patran/report.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <ostream>

#include "counted.h"
#include "json_values.h"
#include "text_table.h"
#include "timed.h"

namespace kvocaeio::host {

namespace {

/// What a type says of an element's property.
struct PropertyType {
    int type;
    std::string_view code;
    std::string_view words;
};

constexpr std::array<PropertyType, 8> kPropertyTypes = {{
    {0, "other", "other values, or none"},
    {2, "two-values", "two values"},
    {3, "three-values", "three or four values, the second not above 0"},
    {10, "two-values-2", "two values, the first is 2"},
    {11, "two-values-3", "two values, the first is 3"},
    {12, "two-values-12", "two values, the first is 12"},
    {13, "three-values-positive", "three or four values, the second above 0"},
    {14, "missing", "is not in the file"},
}};
constexpr PropertyType kOtherType = {0, "other", "other values, or none"};

const PropertyType& propertyType(int type) {
    const auto* row = std::ranges::find(kPropertyTypes, type, &PropertyType::type);
    return row != kPropertyTypes.end() ? *row : kOtherType;
}

Json typesAsJson(const std::map<int, KindCounts>& types, bool arePropertyTypes) {
    Json rows = Json::array();
    for (const auto& [type, kinds] : types) {
        Json row = {{"type", type}};
        if (arePropertyTypes)
            row["property"] = propertyType(type).code;
        row["elementsByKind"] = asJson(kinds);
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace

void PatranReport::print(std::ostream& out, const PageStyle& style) const {
    TextTable overview("lw");
    const bool agree = bridge.nodes == arrays.nodes && bridge.elements == arrays.elements &&
                       asText(bridge.box) == asText(arrays.box);
    if (agree) {
        overview.add({"nodes", std::to_string(arrays.nodes)});
        overview.add({"bounding box", asText(arrays.box)});
        overview.add({"elements", std::to_string(arrays.elements)});
    } else {
        TextTable readers("lrrw");
        readers.add({"reader", "nodes", "elements", "bounding box"});
        const auto add = [&](const char* reader, const PatranView& view) {
            readers.add({reader, std::to_string(view.nodes), std::to_string(view.elements),
                         asText(view.box)});
        };
        add("CPatranReader", arrays);
        add("CKVO_PatranIO_Bridge", bridge);
        readers.print(out, style.width);
        out << '\n';
    }
    if (!kinds.empty())
        overview.add({"by kind", asText(kinds)});
    overview.add({"properties", std::to_string(properties)});
    overview.add({"time taken", "CPatranReader " + secondsText(arrays.seconds) +
                                    ", CKVO_PatranIO_Bridge " + secondsText(bridge.seconds)});
    overview.print(out, style.width);
    if (properties == 0 || types.empty())
        return;  // types are shapes then
    TextTable table("rww");
    table.add({"type", "elements", "their property has"});
    for (const auto& [type, elements] : types)
        table.add({std::to_string(type), asText(elements), std::string(propertyType(type).words)});
    out << '\n';
    table.print(out, style.width);
}

void PatranReport::addTo(Json& object) const {
    object["mesh"] = meshAsJson(arrays.nodes, arrays.box, arrays.elements, kinds);
    object["patran"] = {{"properties", properties},
                        {"bridge",
                         {{"nodes", bridge.nodes},
                          {"boundingBox", asJson(bridge.box)},
                          {"elements", bridge.elements},
                          {"types", typesAsJson(types, properties != 0)}}}};
}

std::vector<std::pair<std::string_view, double>> PatranReport::seconds() const {
    return {{"import", arrays.seconds}, {"bridgeImport", bridge.seconds}};
}

}  // namespace kvocaeio::host
