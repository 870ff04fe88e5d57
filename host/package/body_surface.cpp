/// Corners, rings and poles.
#include "package/body_surface.h"

#include <cmath>
#include <numbers>

namespace kvocaeio::host {

BodySurface makeBox() {
    BodySurface box;
    for (const double z : {-0.5, 0.5})
        for (const auto& [x, y] : {std::array{-0.5, -0.5}, {0.5, -0.5}, {0.5, 0.5}, {-0.5, 0.5}})
            box.points.push_back({x, y, z});
    box.polygons = {{0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 5, 4},
                    {1, 2, 6, 5}, {2, 3, 7, 6}, {0, 4, 7, 3}};
    return box;
}

BodySurface makeSphere(std::int32_t rings, std::int32_t pointsOfRing) {
    BodySurface sphere;
    for (std::int32_t ring = 1; ring <= rings; ++ring)
        for (std::int32_t i = 0; i < pointsOfRing; ++i) {
            const double down = std::numbers::pi * ring / (rings + 1);
            const double around = 2 * std::numbers::pi * i / pointsOfRing;
            sphere.points.push_back({0.5 * std::sin(down) * std::cos(around),
                                     0.5 * std::sin(down) * std::sin(around),
                                     0.5 * std::cos(down)});
        }
    const std::int32_t top = rings * pointsOfRing;
    sphere.points.push_back({0, 0, 0.5});
    sphere.points.push_back({0, 0, -0.5});
    for (std::int32_t i = 0; i < pointsOfRing; ++i) {
        const std::int32_t next = (i + 1) % pointsOfRing;
        sphere.polygons.push_back({top, i, next});
        for (std::int32_t ring = 1; ring < rings; ++ring) {
            const std::int32_t upper = (ring - 1) * pointsOfRing;
            const std::int32_t lower = ring * pointsOfRing;
            sphere.polygons.push_back({upper + i, lower + i, lower + next, upper + next});
        }
        const std::int32_t lowest = (rings - 1) * pointsOfRing;
        sphere.polygons.push_back({top + 1, lowest + next, lowest + i});
    }
    return sphere;
}

}  // namespace kvocaeio::host
