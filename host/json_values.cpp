/// Boxes and counts as JSON.
#include "json_values.h"

#include <nlohmann/json.hpp>

namespace kvocaeio::host {

Json asJson(const BoundingBox& box) {
    if (!box.known())
        return nullptr;
    return {{"min", box.low}, {"max", box.high}};
}

Json asJson(const KindCounts& kinds) {
    Json object = Json::object();
    for (const auto& [name, elements] : kinds)
        object[name] = elements;
    return object;
}

}  // namespace kvocaeio::host
