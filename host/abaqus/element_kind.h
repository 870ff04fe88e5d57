/// Names of the kinds of element that meshes are made of.
#pragma once

#include <array>
#include <string_view>

namespace kvocaeio::host {

enum class Geometry { kUnknown = 0, kShell = 1, kSolid = 2 };

struct ElementKind {
    Geometry geometry;
    int nodes;
    int corners;
    std::string_view name;
};

inline constexpr std::array<ElementKind, 9> kElementKinds = {{
    {Geometry::kSolid, 4, 4, "tetrahedra"},
    {Geometry::kSolid, 5, 5, "pyramids"},
    {Geometry::kSolid, 6, 6, "wedges"},
    {Geometry::kSolid, 8, 8, "hexahedra"},
    {Geometry::kSolid, 10, 4, "quadratic tetrahedra"},
    {Geometry::kSolid, 15, 6, "quadratic wedges"},
    {Geometry::kSolid, 20, 8, "quadratic hexahedra"},
    {Geometry::kShell, 3, 3, "triangles"},
    {Geometry::kShell, 4, 4, "quadrilaterals"},
}};

inline constexpr ElementKind kUnknownKind = {Geometry::kUnknown, 0, 0, "of unknown type"};

/// The kind with this geometry and number of nodes; `kUnknownKind` where there is none.
constexpr const ElementKind& elementKind(Geometry geometry, int nodes) {
    for (const ElementKind& kind : kElementKinds)
        if (kind.geometry == geometry && kind.nodes == nodes)
            return kind;
    return kUnknownKind;
}

}  // namespace kvocaeio::host
