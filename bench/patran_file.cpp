/// Generated Patran neutral files.
#include <array>
#include <cstdio>

#include "bench/inputs.h"
#include "bench/solid_mesh.h"

namespace kvocaeio::bench {

namespace {

void integers(text::Writer& out, std::span<const int> values) {
    for (const int value : values)
        out.integer(value, 8);
}

// What is behind the packet's type: ID, IV, KC and five numbers.
void header(text::Writer& out, int type, const std::array<int, 8>& fields) {
    out.integer(type, 2);
    integers(out, fields);
    out.character('\n');
}

void real(text::Writer& out, double value) {
    char field[32];
    const int size = std::snprintf(field, sizeof field, "%16.9E", value);
    out.text({field, static_cast<std::size_t>(size)});
}

void writeSolid(text::Writer& out, int id, int property, std::span<const int> nodes) {
    header(out, 2, {id, shapeCode(nodes.size()), 2});
    integers(out, std::array{static_cast<int>(nodes.size()), 0, property, 0});
    out.text(" 0.000000000E+00 0.000000000E+00 0.000000000E+00\n");
    integers(out, nodes);
    out.character('\n');
}

}  // namespace

void writePatranFile(text::Writer& out, int solids) {
    const SolidMesh mesh = makeSolidMesh(solids);
    const int properties = static_cast<int>(mesh.blocks.size());
    header(out, 25, {0, 0, 1});
    out.text("bench neutral file, generated\n");
    header(out, 26, {0, 0, 1, countNodes(mesh), solids, 1, properties});
    out.text("01-Jan-26   12:00:00         3.0\n");
    forEachNode(mesh, [&](int id, std::span<const double, 3> coords) {
        header(out, 1, {id, 0, 2});
        for (const double coord : coords)
            real(out, coord);
        out.text("\n1G       6       0       0  000000\n");
    });
    forEachSolid(mesh, [&](int id, int property, std::span<const int> solid) {
        writeSolid(out, id, property, solid);
    });
    for (const SolidBlock& block : mesh.blocks) {
        const int corners = static_cast<int>(block.corners);
        header(out, 4, {block.property, 1, 1, shapeCode(block.corners), corners});
        for (const double value : {1.0, 0.0, 0.0, 0.0, 0.0})
            real(out, value);
        out.character('\n');
    }
    header(out, 99, {0, 0, 1});
    out.character('\n');
}

}  // namespace kvocaeio::bench
