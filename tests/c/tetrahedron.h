/// The smallest mesh that can be written.
#pragma once

#include <array>
#include <cstdint>

#include <kvocaeio/kvocaeio.h>

namespace kvocaeio::test {

/// One tetrahedron of nodes with the OIDs 2, 4, 6, 8. Stays where it is made.
struct Tetrahedron {
    Tetrahedron() {
        block.nodes_per_element = 4;
        block.count = 1;
        block.nodes = oids.data();
        mesh.struct_size = sizeof mesh;
        mesh.node_count = 4;
        mesh.node_oids = oids.data();
        mesh.coordinates = coordinates.data();
        mesh.block_count = 1;
        mesh.block_size = sizeof block;
        mesh.blocks = &block;
    }
    Tetrahedron(const Tetrahedron&) = delete;
    Tetrahedron& operator=(const Tetrahedron&) = delete;

    const std::array<double, 12> coordinates{0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1};
    const std::array<std::int32_t, 4> oids{2, 4, 6, 8};
    kvocaeio_block block{};
    kvocaeio_mesh mesh{};
};

}  // namespace kvocaeio::test
