/// Meshes as JSON.
#include "json_values.h"

#include <nlohmann/json.hpp>

namespace kvocaeio::host {

Json asJson(const BoundingBox& box) {
    if (!box.known())
        return nullptr;
    return {{"min", box.low}, {"max", box.high}};
}

Json meshAsJson(std::size_t nodes, const BoundingBox& box, std::size_t elements,
                const KindCounts& kinds) {
    return {{"nodes", nodes},
            {"boundingBox", asJson(box)},
            {"elements", elements},
            {"elementsByKind", asJson(kinds)}};
}

Json asJson(const KindCounts& kinds) {
    Json object = Json::object();
    for (const auto& [name, elements] : kinds)
        object[kindCode(name)] = elements;
    return object;
}

}  // namespace kvocaeio::host
