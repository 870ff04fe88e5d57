/// What all sources and writers of meshes need.
#include "solid_mesh.h"

#include <algorithm>

#include "counted.h"

namespace kvocaeio::host {

std::array<int, 8> oidsOf(const SolidMesh& mesh, const SolidMesh::Element& element) {
    std::array<int, 8> oids{};
    std::transform(element.nodes.begin(), element.nodes.begin() + element.corners, oids.begin(),
                   [&](int row) { return mesh.nodeOids[static_cast<std::size_t>(row)]; });
    return oids;
}

void leaveOut(SolidMesh& mesh, std::string_view code, std::size_t number, std::string_view things,
              std::string_view rest) {
    if (number != 0)
        mesh.losses.push_back(
            {std::string(code), number, counted(number, things) + std::string(rest)});
}

void leaveOut(SolidMesh& mesh, const KindCounts& kinds) {
    for (const auto& [name, number] : kinds)
        leaveOut(mesh, kindCode(name), number, name);
}

}  // namespace kvocaeio::host
