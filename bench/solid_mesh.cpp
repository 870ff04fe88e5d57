/// The mesh that the Nastran and Patran benchmarks read and write, cut from the lattice.
#include "bench/solid_mesh.h"

#include <cstdlib>

#include "bench/lattice.h"

namespace kvocaeio::bench {

namespace {

template <class Cut>
int cubesFor(const Cut& cut, int solids) {
    return roundedUp(solids, static_cast<int>(cut.size()));
}

// Makes `solids` solids of one kind from `firstCube` on, in blocks of equal size.
template <class Cut>
void addSolids(const Lattice& lattice, int firstCube, const Cut& cut, int solids, int blocks,
               SolidMesh& mesh) {
    const int blockSize = roundedUp(solids, blocks);
    for (int solid = 0; solid < solids; ++solid) {
        if (solid % blockSize == 0) {
            mesh.blocks.push_back({static_cast<int>(mesh.blocks.size()) + 1, cut[0].size(), {}});
            mesh.blocks.back().nodes.reserve(static_cast<std::size_t>(blockSize) * cut[0].size());
        }
        const auto [cube, part] = std::div(solid, static_cast<int>(cut.size()));
        const int firstNode = lattice.firstNode(firstCube + cube);
        for (const Step& corner : cut[static_cast<std::size_t>(part)])
            mesh.blocks.back().nodes.push_back(firstNode + lattice.distance(corner));
    }
}

}  // namespace

SolidMesh makeSolidMesh(int solids) {
    const int hexes = solids / 2;
    const int wedges = solids / 10;
    const int tets = solids - hexes - wedges;
    const int wedgeCubes = cubesFor(kWedgeCut, wedges);
    const Lattice lattice(hexes + wedgeCubes + cubesFor(kTetCut, tets), 1);
    SolidMesh mesh;
    mesh.coords.reserve(3 * static_cast<std::size_t>(lattice.nodeLayers() * lattice.layerNodes()));
    for (int z = 0; z < lattice.nodeLayers(); ++z)
        for (int y = 0; y < lattice.sideNodes(); ++y)
            for (int x = 0; x < lattice.sideNodes(); ++x)
                for (const double coord :
                     {lattice.coordinate(x, 0), lattice.coordinate(y, 1), lattice.coordinate(z, 2)})
                    mesh.coords.push_back(coord);
    addSolids(lattice, 0, kHexCut, hexes, 2, mesh);
    addSolids(lattice, hexes, kWedgeCut, wedges, 1, mesh);
    addSolids(lattice, hexes + wedgeCubes, kTetCut, tets, 2, mesh);
    return mesh;
}

int countNodes(const SolidMesh& mesh) {
    return static_cast<int>(mesh.coords.size() / 3);
}

int countSolids(const SolidMesh& mesh) {
    std::size_t count = 0;
    for (const SolidBlock& block : mesh.blocks)
        count += block.nodes.size() / block.corners;
    return static_cast<int>(count);
}

std::size_t bytes(const SolidMesh& mesh) {
    std::size_t sum = mesh.coords.size() * sizeof(double);
    for (const SolidBlock& block : mesh.blocks)
        sum += block.nodes.size() * sizeof(int);
    return sum;
}

}  // namespace kvocaeio::bench
