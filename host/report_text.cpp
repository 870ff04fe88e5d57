/// What reports of several formats write the same way.
#include <algorithm>
#include <sstream>

#include "bounding_box.h"
#include "kind_counts.h"

namespace kvocaeio::host {

std::string asText(const std::array<double, 3>& place) {
    std::ostringstream text;
    text << "(" << place[0] << ", " << place[1] << ", " << place[2] << ")";
    return text.str();
}

std::string asText(const BoundingBox& box) {
    return box.known() ? asText(box.low) + " to " + asText(box.high) : "none";
}

Json asJson(const BoundingBox& box) {
    if (!box.known())
        return nullptr;
    return {{"min", box.low}, {"max", box.high}};
}

void count(KindCounts& kinds, std::string_view name, std::size_t elements) {
    const auto known = std::find_if(kinds.begin(), kinds.end(),
                                    [&](const auto& kind) { return kind.first == name; });
    if (known != kinds.end())
        known->second += elements;
    else if (elements != 0)
        kinds.emplace_back(name, elements);
}

std::string asText(const KindCounts& kinds) {
    std::string text;
    for (const auto& [name, elements] : kinds)
        text += (text.empty() ? "" : ", ") + std::to_string(elements) + " " + name;
    return text;
}

Json asJson(const KindCounts& kinds) {
    Json object = Json::object();
    for (const auto& [name, elements] : kinds)
        object[name] = elements;
    return object;
}

}  // namespace kvocaeio::host
