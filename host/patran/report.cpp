/// The report on a Patran neutral file, written as text and as JSON.
#include "patran/report.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "json_values.h"
#include "text_table.h"
#include "timed.h"

namespace kvocaeio::host {

namespace {

Json viewAsJson(const PatranView& view, double seconds) {
    return {{"nodes", view.nodes},
            {"boundingBox", asJson(view.box)},
            {"elements", view.elements},
            {"elementsByType", asJson(view.kinds)},
            {"seconds", seconds}};
}

}  // namespace

void PatranReport::print(std::ostream& out) const {
    TextTable table("llll");
    // What both readers say the same of stands there once.
    const auto add = [&](const std::string& what, const std::string& left,
                         const std::string& right) {
        if (left == right)
            table.add({what, left});
        else
            table.add({what, left, "|", right});
    };
    table.add({"reader", "CKVO_PatranIO_Bridge", "|", "CPatranReader"});
    add("nodes", std::to_string(bridge.nodes), std::to_string(arrays.nodes));
    add("bounding box", asText(bridge.box), asText(arrays.box));
    add("elements", std::to_string(bridge.elements), std::to_string(arrays.elements));
    add("by type", asText(bridge.kinds), asText(arrays.kinds));
    table.add({"properties", "", "|", std::to_string(properties)});
    add("time taken", secondsText(bridgeSeconds), secondsText(arraysSeconds));
    table.print(out, "  ");
    out << '\n';
}

void PatranReport::addTo(Json& object) const {
    object["CKVO_PatranIO_Bridge"] = viewAsJson(bridge, bridgeSeconds);
    object["CPatranReader"] = viewAsJson(arrays, arraysSeconds);
    object["CPatranReader"]["properties"] = properties;
}

}  // namespace kvocaeio::host
