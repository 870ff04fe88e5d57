/// The mesh that the Nastran and Patran benchmarks read and write.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace kvocaeio::bench {

/// Solids with the same number of corners and the same property.
struct SolidBlock {
    int property;
    std::size_t corners;
    std::vector<int> nodes;
};

/// Nodes count from 1, solids too, through all blocks; properties count from 1 to the number of
/// blocks.
struct SolidMesh {
    std::vector<double> coords;  ///< x, y, z per node
    std::vector<SolidBlock> blocks;
};

/// Half of the solids are hexahedra, a tenth are wedges, the others tetrahedra.
SolidMesh makeSolidMesh(int solids);

int countNodes(const SolidMesh& mesh);
int countSolids(const SolidMesh& mesh);

/// Bytes of the mesh's arrays.
std::size_t bytes(const SolidMesh& mesh);

/// The shape code that a Patran neutral file has for a solid.
constexpr int shapeCode(std::size_t corners) {
    return corners == 4 ? 5 : corners == 6 ? 7 : 8;
}

/// Calls `visit(id, coords)` for all nodes.
template <class Visit>
void forEachNode(const SolidMesh& mesh, const Visit& visit) {
    int id = 0;
    for (std::span<const double> coords(mesh.coords); !coords.empty(); coords = coords.subspan<3>())
        visit(++id, coords.first<3>());
}

/// Calls `visit(id, property, nodes)` for all solids.
template <class Visit>
void forEachSolid(const SolidMesh& mesh, const Visit& visit) {
    int id = 0;
    for (const SolidBlock& block : mesh.blocks)
        for (std::span<const int> nodes(block.nodes); !nodes.empty();
             nodes = nodes.subspan(block.corners))
            visit(++id, block.property, nodes.first(block.corners));
}

}  // namespace kvocaeio::bench
