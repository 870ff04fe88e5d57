/// The sizes of what can be written.
#include "convert/conversion.h"

namespace kvocaeio::host {

namespace {

using Sizes = std::vector<std::pair<std::string_view, std::size_t>>;

Sizes sizesOf(const SolidMesh& mesh) {
    return {{"nodes", mesh.nodes.size()},
            {"elements", mesh.elements.size()},
            {"sections", mesh.sections.size()}};
}

Sizes sizesOf(const Mesh& mesh) {
    return {
        {"nodes", mesh.nodes()}, {"elements", mesh.elements()}, {"sections", mesh.sections.size()}};
}

Sizes sizesOf(const PackageScene& scene) {
    return {{"bodies", scene.bodies.size()}, {"wires", scene.wires.size()}};
}

template <class Content>
Conversion madeOf(Content& content) {
    return {sizesOf(content), std::move(content.losses), std::move(content.remarks),
            std::move(content.imported)};
}

}  // namespace

Conversion conversionOf(SolidMesh content) {
    return madeOf(content);
}

Conversion conversionOf(Mesh content) {
    return madeOf(content);
}

Conversion conversionOf(PackageScene content) {
    return madeOf(content);
}

}  // namespace kvocaeio::host
