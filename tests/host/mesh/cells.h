/// Elements of every kind at places that can be checked by hand.
#pragma once

#include <array>
#include <vector>

#include "mesh/cell_kind.h"

namespace kvocaeio::test {

using Place = std::array<double, 3>;

/// The corners of one element of each kind of solid, in the order of decks, with its volume.
struct SolidCell {
    host::CellKind linear;
    host::CellKind quadratic;  ///< the same as `linear` where there is none
    std::vector<Place> corners;
    /// The edges on which a quadratic element has nodes, in their order.
    std::vector<std::array<std::size_t, 2>> edges;
    double volume;
};

inline const std::vector<SolidCell> kSolidCells = {
    {host::CellKind::kTetrahedron4,
     host::CellKind::kTetrahedron10,
     {{0, 0, 0}, {6, 0, 0}, {0, 6, 0}, {0, 0, 6}},
     {{0, 1}, {1, 2}, {2, 0}, {0, 3}, {1, 3}, {2, 3}},
     36},
    {host::CellKind::kPyramid5,
     host::CellKind::kPyramid5,
     {{0, 0, 0}, {6, 0, 0}, {6, 6, 0}, {0, 6, 0}, {3, 3, 6}},
     {},
     72},
    {host::CellKind::kWedge6,
     host::CellKind::kWedge15,
     {{0, 0, 0}, {6, 0, 0}, {0, 6, 0}, {0, 0, 6}, {6, 0, 6}, {0, 6, 6}},
     {{0, 1}, {1, 2}, {2, 0}, {3, 4}, {4, 5}, {5, 3}, {0, 3}, {1, 4}, {2, 5}},
     108},
    {host::CellKind::kHexahedron8,
     host::CellKind::kHexahedron20,
     {{0, 0, 0}, {6, 0, 0}, {6, 6, 0}, {0, 6, 0}, {0, 0, 6}, {6, 0, 6}, {6, 6, 6}, {0, 6, 6}},
     {{0, 1},
      {1, 2},
      {2, 3},
      {3, 0},
      {4, 5},
      {5, 6},
      {6, 7},
      {7, 4},
      {0, 4},
      {1, 5},
      {2, 6},
      {3, 7}},
     216},
};

}  // namespace kvocaeio::test
