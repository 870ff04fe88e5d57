/// What all writers of solids need.
#include "solid_mesh.h"

#include <algorithm>

namespace kvocaeio::host {

std::array<int, 8> oidsOf(const SolidMesh& mesh, const SolidMesh::Element& element) {
    std::array<int, 8> oids{};
    std::transform(element.nodes.begin(), element.nodes.begin() + element.corners, oids.begin(),
                   [&](int row) { return mesh.nodeOids[static_cast<std::size_t>(row)]; });
    return oids;
}

}  // namespace kvocaeio::host
