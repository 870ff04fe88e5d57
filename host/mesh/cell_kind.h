/// The standard elements that meshes are made of, with their nodes and faces.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace kvocaeio::host {

enum class CellKind : std::uint8_t {
    kLine2,
    kTriangle3,
    kQuadrilateral4,
    kTriangle6,
    kQuadrilateral8,
    kTetrahedron4,
    kPyramid5,
    kWedge6,
    kHexahedron8,
    kTetrahedron10,
    kWedge15,
    kHexahedron20,
};

/// One face of a solid, as places in the element's list of nodes: corners, counter-clockwise as
/// seen from outside, then the nodes on the edges, that between the first two corners first.
struct CellFace {
    CellKind kind;
    std::array<std::uint8_t, 8> places;
};

/// An element lists its corners first, then a node on each edge. The corners of a solid are those
/// of its first face, counter-clockwise as seen from inside, then those on the other side. Edges
/// are in the order of the first face, the opposite face, and those between the two.
struct CellShape {
    CellKind kind;
    std::string_view code;  ///< for programs
    std::string_view name;  ///< in the plural
    std::size_t nodes;
    std::size_t corners;
    int dimension;                    ///< 1 line, 2 face, 3 solid
    std::span<const CellFace> faces;  ///< of solids, in the order of the face numbers of decks
};

const CellShape& cellShape(CellKind kind);

/// The kind of so many nodes; null where there is none.
const CellShape* findCellShape(int dimension, std::size_t nodes);

}  // namespace kvocaeio::host
