/// The surfaces of bodies, for the formats that know neither boxes nor balls.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace kvocaeio::host {

/// A closed surface around (0, 0, 0), one wide in x, y and z.
struct BodySurface {
    std::vector<std::array<double, 3>> points;
    std::vector<std::vector<std::int32_t>> polygons;  ///< counter-clockwise as seen from outside
};

BodySurface makeBox();

/// Rings of points between two poles; with a multiple of four to a ring its box is that of the
/// sphere.
BodySurface makeSphere(std::int32_t rings, std::int32_t pointsOfRing);

}  // namespace kvocaeio::host
