/// Connectivities that an import does not keep, and the shapes of elements.
#include "c/mesh_tables.h"

#include <algorithm>

namespace kvocaeio::c_interface {

namespace {

struct KindRow {
    std::int32_t geometry;
    std::size_t nodes;
    std::int32_t kind;
};

constexpr std::array<KindRow, 10> kKinds{{
    {KVOCAEIO_GEOMETRY_LINE, 2, KVOCAEIO_KIND_LINE},
    {KVOCAEIO_GEOMETRY_SHELL, 3, KVOCAEIO_KIND_TRIANGLE},
    {KVOCAEIO_GEOMETRY_SHELL, 4, KVOCAEIO_KIND_QUADRILATERAL},
    {KVOCAEIO_GEOMETRY_SOLID, 4, KVOCAEIO_KIND_TETRAHEDRON},
    {KVOCAEIO_GEOMETRY_SOLID, 5, KVOCAEIO_KIND_PYRAMID},
    {KVOCAEIO_GEOMETRY_SOLID, 6, KVOCAEIO_KIND_WEDGE},
    {KVOCAEIO_GEOMETRY_SOLID, 8, KVOCAEIO_KIND_HEXAHEDRON},
    {KVOCAEIO_GEOMETRY_SOLID, 10, KVOCAEIO_KIND_TETRAHEDRON},
    {KVOCAEIO_GEOMETRY_SOLID, 15, KVOCAEIO_KIND_WEDGE},
    {KVOCAEIO_GEOMETRY_SOLID, 20, KVOCAEIO_KIND_HEXAHEDRON},
}};

}  // namespace

SectionTable sectionOf(std::int32_t geometry, std::size_t nodesPerElement,
                       std::span<const int> oids, const int* nodes) {
    SectionTable table;
    table.section.name = table.section.type = "";
    table.section.geometry = geometry;
    table.section.kind = kindOf(geometry, nodesPerElement);
    table.section.nodes_per_element = nodesPerElement;
    table.section.count = oids.size();
    table.section.oids = oids.data();
    table.oids = nodes;
    return table;
}

const int* connectivityOf(const MeshTables& mesh, SectionTable& table, bool asRows) {
    const int*& wanted = asRows ? table.rows : table.oids;
    if (wanted != nullptr)
        return wanted;
    const std::size_t count = table.section.count * table.section.nodes_per_element;
    auto made = text::makeZeroed<int>(count);
    if (asRows)
        mesh.nodeRows->find({table.oids, count}, made.get());
    else
        std::transform(table.rows, table.rows + count, made.get(),
                       [&](int row) { return mesh.nodes.oids[static_cast<std::size_t>(row)]; });
    table.made = std::move(made);
    return wanted = table.made.get();
}

std::int32_t kindOf(std::int32_t geometry, std::size_t nodes) {
    const auto* const row = std::ranges::find_if(kKinds, [&](const KindRow& kind) {
        return kind.geometry == geometry && kind.nodes == nodes;
    });
    return row == kKinds.end() ? KVOCAEIO_KIND_UNKNOWN : row->kind;
}

}  // namespace kvocaeio::c_interface
