/// The box around a mesh's nodes.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>

namespace kvocaeio::host {

struct BoundingBox {
    static constexpr double kInfinity = std::numeric_limits<double>::infinity();

    std::array<double, 3> low{kInfinity, kInfinity, kInfinity};
    std::array<double, 3> high{-kInfinity, -kInfinity, -kInfinity};

    std::size_t nonFinite = 0;  ///< places with a coordinate that is infinite or no number

    /// Makes the box hold x, y, z at `place`, too, as far as they are finite numbers.
    template <class Real>
    void add(const Real* place) {
        bool isFinite = true;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const auto value = static_cast<double>(place[axis]);
            if (!std::isfinite(value)) {
                isFinite = false;
                continue;
            }
            if (value < low[axis])
                low[axis] = value;
            if (value > high[axis])
                high[axis] = value;
        }
        nonFinite += isFinite ? 0 : 1;
    }

    /// Whether there is a box: a place was added on each axis.
    bool known() const { return low[0] <= high[0] && low[1] <= high[1] && low[2] <= high[2]; }
};

/// "(x, y, z)".
std::string asText(const std::array<double, 3>& place);

/// "(x, y, z) to (x, y, z)"; "none" where there is no box.
std::string asText(const BoundingBox& box);

}  // namespace kvocaeio::host
