/// The table of kinds.
#include "mesh/cell_kind.h"

#include <algorithm>

namespace kvocaeio::host {

namespace {

using enum CellKind;

constexpr std::array<CellFace, 4> kTetrahedron4Faces = {{
    {kTriangle3, {0, 2, 1}},
    {kTriangle3, {0, 1, 3}},
    {kTriangle3, {1, 2, 3}},
    {kTriangle3, {0, 3, 2}},
}};
constexpr std::array<CellFace, 5> kPyramid5Faces = {{
    {kQuadrilateral4, {0, 3, 2, 1}},
    {kTriangle3, {0, 1, 4}},
    {kTriangle3, {1, 2, 4}},
    {kTriangle3, {2, 3, 4}},
    {kTriangle3, {3, 0, 4}},
}};
constexpr std::array<CellFace, 5> kWedge6Faces = {{
    {kTriangle3, {0, 2, 1}},
    {kTriangle3, {3, 4, 5}},
    {kQuadrilateral4, {0, 1, 4, 3}},
    {kQuadrilateral4, {1, 2, 5, 4}},
    {kQuadrilateral4, {2, 0, 3, 5}},
}};
constexpr std::array<CellFace, 6> kHexahedron8Faces = {{
    {kQuadrilateral4, {0, 3, 2, 1}},
    {kQuadrilateral4, {4, 5, 6, 7}},
    {kQuadrilateral4, {0, 1, 5, 4}},
    {kQuadrilateral4, {1, 2, 6, 5}},
    {kQuadrilateral4, {2, 3, 7, 6}},
    {kQuadrilateral4, {0, 4, 7, 3}},
}};
constexpr std::array<CellFace, 4> kTetrahedron10Faces = {{
    {kTriangle6, {0, 2, 1, 6, 5, 4}},
    {kTriangle6, {0, 1, 3, 4, 8, 7}},
    {kTriangle6, {1, 2, 3, 5, 9, 8}},
    {kTriangle6, {0, 3, 2, 7, 9, 6}},
}};
constexpr std::array<CellFace, 5> kWedge15Faces = {{
    {kTriangle6, {0, 2, 1, 8, 7, 6}},
    {kTriangle6, {3, 4, 5, 9, 10, 11}},
    {kQuadrilateral8, {0, 1, 4, 3, 6, 13, 9, 12}},
    {kQuadrilateral8, {1, 2, 5, 4, 7, 14, 10, 13}},
    {kQuadrilateral8, {2, 0, 3, 5, 8, 12, 11, 14}},
}};
constexpr std::array<CellFace, 6> kHexahedron20Faces = {{
    {kQuadrilateral8, {0, 3, 2, 1, 11, 10, 9, 8}},
    {kQuadrilateral8, {4, 5, 6, 7, 12, 13, 14, 15}},
    {kQuadrilateral8, {0, 1, 5, 4, 8, 17, 12, 16}},
    {kQuadrilateral8, {1, 2, 6, 5, 9, 18, 13, 17}},
    {kQuadrilateral8, {2, 3, 7, 6, 10, 19, 14, 18}},
    {kQuadrilateral8, {0, 4, 7, 3, 16, 15, 19, 11}},
}};

// In the order of the kinds.
constexpr std::array<CellShape, 12> kShapes = {{
    {kLine2, "line2", "bars", 2, 2, 1, {}},
    {kTriangle3, "triangle3", "triangles", 3, 3, 2, {}},
    {kQuadrilateral4, "quadrilateral4", "quadrilaterals", 4, 4, 2, {}},
    {kTriangle6, "triangle6", "quadratic triangles", 6, 3, 2, {}},
    {kQuadrilateral8, "quadrilateral8", "quadratic quadrilaterals", 8, 4, 2, {}},
    {kTetrahedron4, "tetrahedron4", "tetrahedra", 4, 4, 3, kTetrahedron4Faces},
    {kPyramid5, "pyramid5", "pyramids", 5, 5, 3, kPyramid5Faces},
    {kWedge6, "wedge6", "wedges", 6, 6, 3, kWedge6Faces},
    {kHexahedron8, "hexahedron8", "hexahedra", 8, 8, 3, kHexahedron8Faces},
    {kTetrahedron10, "tetrahedron10", "quadratic tetrahedra", 10, 4, 3, kTetrahedron10Faces},
    {kWedge15, "wedge15", "quadratic wedges", 15, 6, 3, kWedge15Faces},
    {kHexahedron20, "hexahedron20", "quadratic hexahedra", 20, 8, 3, kHexahedron20Faces},
}};

}  // namespace

const CellShape& cellShape(CellKind kind) {
    return kShapes[static_cast<std::size_t>(kind)];
}

const CellShape* findCellShape(int dimension, std::size_t nodes) {
    const auto* const shape = std::ranges::find_if(kShapes, [&](const CellShape& known) {
        return known.dimension == dimension && known.nodes == nodes;
    });
    return shape != kShapes.end() ? shape : nullptr;
}

}  // namespace kvocaeio::host
