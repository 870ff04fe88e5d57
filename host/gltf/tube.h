/// Wires as bodies.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "gltf/glb_file.h"

namespace kvocaeio::host {

/// Faces with a direction of its own at each point.
struct ShadedSurface {
    std::vector<GltfPoint> points;
    std::vector<GltfPoint> normals;   ///< of length 1
    std::vector<std::uint32_t> rows;  ///< three to a triangle, counter-clockwise from outside
};

/// Adds the closed tube around the line through the points of `path` (x, y, z each, z up). It is as
/// thick as the wire between its bends too, where its rings lie on the planes that halve the
/// angles. Nothing is added for a line without a length. Lengths are multiplied by `metres`.
void addTube(std::span<const double> path, double diameter, double metres, ShadedSurface& surface);

}  // namespace kvocaeio::host
