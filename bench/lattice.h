/// The block of cubes that all generated meshes are cut from.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>

namespace kvocaeio::bench {

/// A step from a cube's first node, in node spacings.
struct Step {
    int x, y, z;
};

/// A whole number of groups of `divisor`, the last of which may not be full.
constexpr int roundedUp(int number, int divisor) {
    return (number + divisor - 1) / divisor;
}

/// The corners of the cube, and of the six tetrahedra, around its diagonal, or two wedges that it
/// can be cut into. All have a positive volume.
inline constexpr std::array<std::array<Step, 8>, 1> kHexCut = {{
    {{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}}},
}};
inline constexpr std::array<std::array<Step, 6>, 2> kWedgeCut = {{
    {{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 0, 1}, {1, 0, 1}, {1, 1, 1}}},
    {{{0, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 1}, {0, 1, 1}}},
}};
inline constexpr std::array<std::array<Step, 4>, 6> kTetCut = {{
    {{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {1, 1, 1}}},
    {{{0, 0, 0}, {1, 0, 1}, {1, 0, 0}, {1, 1, 1}}},
    {{{0, 0, 0}, {1, 1, 0}, {0, 1, 0}, {1, 1, 1}}},
    {{{0, 0, 0}, {0, 1, 0}, {0, 1, 1}, {1, 1, 1}}},
    {{{0, 0, 0}, {0, 0, 1}, {1, 0, 1}, {1, 1, 1}}},
    {{{0, 0, 0}, {0, 1, 1}, {0, 0, 1}, {1, 1, 1}}},
}};

/// Cubes in layers, and the nodes at their corners. With a fineness of 2 a cube's edge has a node
/// in its middle, too. Cubes count from 0 and nodes from 1: x runs fastest, then y, then z.
class Lattice {
  public:
    /// As near to a cube of cubes as `cubes` allows; the last layers may not be used up.
    Lattice(int cubes, int fineness)
        : side_(std::max(1, static_cast<int>(std::lround(std::cbrt(cubes))))),
          layers_(roundedUp(cubes, layerCubes())),
          fineness_(fineness) {}

    int layerCubes() const { return side_ * side_; }
    int sideNodes() const { return fineness_ * side_ + 1; }
    int layerNodes() const { return sideNodes() * sideNodes(); }
    int nodeLayers() const { return fineness_ * layers_ + 1; }

    int firstNode(int cube) const {
        const int z = cube / layerCubes();
        const int y = cube % layerCubes() / side_;
        const int x = cube % side_;
        return fineness_ * distance({x, y, z}) + 1;
    }
    /// What a step adds to a node's number.
    int distance(Step step) const { return step.x + sideNodes() * step.y + layerNodes() * step.z; }
    /// Coordinate of the node at `position` along one axis, unevenly spaced so that a number's
    /// digits are all in use.
    double coordinate(int position, double axisPhase) const {
        const double spacing = 0.5 / fineness_;
        return (position + 0.11 * std::sin(1.7 * position + axisPhase)) * spacing;
    }

  private:
    int side_;
    int layers_;
    int fineness_;
};

}  // namespace kvocaeio::bench
