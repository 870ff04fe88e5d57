/// The report on a Nastran deck, written as text and as JSON.
#include "nastran/report.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "json_values.h"
#include "text_table.h"
#include "tidy/original_oids.h"
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

void NastranReport::print(std::ostream& out, const PageStyle& style) const {
    TextTable overview("lw");
    overview.add({"nodes", ofRows(nodes, nodeRows)});
    overview.add({"bounding box", asText(box)});
    overview.add({"elements", ofRows(elements, elementRows)});
    if (!kinds.empty())
        overview.add({"by kind", asText(kinds)});
    overview.add({"properties", std::to_string(sections.size())});
    overview.add({"materials", std::to_string(materials)});
    overview.add({"time taken", secondsText(importSeconds)});
    overview.print(out, style.width);
    if (sections.empty())
        return;
    TextTable table("rrr");
    table.add({"property", "material", "value"});
    for (const auto& [property, material, value] : sections)
        table.add({std::to_string(property), std::to_string(material), std::to_string(value)});
    out << '\n';
    table.print(out, style.width);
}

void NastranReport::addTo(Json& object) const {
    object["mesh"] = meshAsJson(nodes, box, elements, kinds);
    Json properties = Json::array();
    for (const auto& [property, material, value] : sections)
        properties.push_back({{"property", property}, {"material", material}, {"value", value}});
    object["nastran"] = {{"nodeRows", nodeRows},
                         {"elementRows", elementRows},
                         {"properties", std::move(properties)},
                         {"materials", materials}};
}

void NastranReport::restoreNumbers(const OriginalOids& originals) {
    for (auto& [property, material, value] : sections)
        property = originals.property(property);
}

std::vector<std::pair<std::string_view, double>> NastranReport::seconds() const {
    return {{"import", importSeconds}};
}

}  // namespace kvocaeio::host
