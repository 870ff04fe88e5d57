/// The report on a Nastran deck, written as text and as JSON.
#include "nastran/report.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "json_values.h"
#include "text_table.h"
#include "timed.h"

namespace kvocaeio::host {

namespace {

std::string ofRows(std::size_t used, int rows) {
    std::string words = std::to_string(used);
    if (used != static_cast<std::size_t>(rows))
        words += " in " + std::to_string(rows) + " rows (one for each OID up to the largest)";
    return words;
}

}  // namespace

void NastranReport::print(std::ostream& out) const {
    TextTable overview("ll");
    overview.add({"nodes", ofRows(nodes, nodeRows)});
    overview.add({"bounding box", asText(box)});
    overview.add({"elements", ofRows(elements, elementRows)});
    if (!kinds.empty())
        overview.add({"by kind", asText(kinds)});
    if (undefinedNodes != 0)
        overview.add({"no such node", std::to_string(undefinedNodes) + " times in elements"});
    overview.add({"sections", std::to_string(sections.size())});
    overview.add({"materials", std::to_string(materials)});
    overview.add({"time taken", secondsText(seconds)});
    overview.print(out, "  ");
    out << '\n';
    if (sections.empty())
        return;
    TextTable table("rrr");
    table.add({"property", "material", "value"});
    for (const auto& [property, material, value] : sections)
        table.add({std::to_string(property), std::to_string(material), std::to_string(value)});
    table.print(out, "  ");
    out << '\n';
}

void NastranReport::addTo(Json& object) const {
    object["nodes"] = nodes;
    object["nodeRows"] = nodeRows;
    object["boundingBox"] = asJson(box);
    object["elements"] = elements;
    object["elementRows"] = elementRows;
    object["elementsByKind"] = asJson(kinds);
    object["undefinedNodes"] = undefinedNodes;
    object["sections"] = Json::array();
    for (const auto& [property, material, value] : sections)
        object["sections"].push_back(
            {{"property", property}, {"material", material}, {"value", value}});
    object["materials"] = materials;
    object["seconds"] = seconds;
}

}  // namespace kvocaeio::host
