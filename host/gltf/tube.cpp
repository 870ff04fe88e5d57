/// Rings along a line.
#include "gltf/tube.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace kvocaeio::host {

namespace {

using Vector = std::array<double, 3>;

constexpr std::uint32_t kSides = 12;
// A ring at a sharp bend is not drawn out further than this.
constexpr double kLongestMiter = 3.0;

Vector sum(const Vector& a, double factor, const Vector& b) {
    return {a[0] + factor * b[0], a[1] + factor * b[1], a[2] + factor * b[2]};
}

double dot(const Vector& a, const Vector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector cross(const Vector& a, const Vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Vector unit(const Vector& a) {
    const double length = std::hypot(a[0], a[1], a[2]);
    return length == 0.0 ? a : Vector{a[0] / length, a[1] / length, a[2] / length};
}

/// Any direction across `along`.
Vector across(const Vector& along) {
    return unit(cross(along, std::fabs(along[2]) < 0.9 ? Vector{0, 0, 1} : Vector{1, 0, 0}));
}

class Tube {
  public:
    Tube(std::span<const double> path, double radius, double metres, ShadedSurface& surface)
        : radius_(radius), metres_(metres), surface_(surface) {
        for (std::size_t i = 0; i + 2 < path.size(); i += 3) {
            const Vector point = {path[i], path[i + 1], path[i + 2]};
            if (points_.empty() || point != points_.back())
                points_.push_back(point);
        }
    }

    void add() {
        if (points_.size() < 2)
            return;
        Vector along = directionFrom(0);
        Vector side = across(along);
        cap(points_.front(), along, side, -1.0);
        for (std::size_t i = 0; i + 1 < points_.size(); ++i) {
            along = directionFrom(i);
            // Turned with the line as little as can be.
            const Vector turnedSide = unit(sum(side, -dot(side, along), along));
            side = dot(turnedSide, turnedSide) < 0.5 ? across(along) : turnedSide;
            const auto first = static_cast<std::uint32_t>(surface_.points.size());
            ring(i, along, side, halvingPlane(i));
            ring(i + 1, along, side, halvingPlane(i + 1));
            for (std::uint32_t s = 0; s < kSides; ++s) {
                const std::uint32_t next = (s + 1) % kSides;
                for (const std::uint32_t row :
                     {s, next, kSides + next, s, kSides + next, kSides + s})
                    surface_.rows.push_back(first + row);
            }
        }
        cap(points_.back(), along, side, 1.0);
    }

  private:
    Vector directionFrom(std::size_t i) const {
        return unit(sum(points_[i + 1], -1.0, points_[i]));
    }

    /// The direction across which the tube is cut at a point.
    Vector halvingPlane(std::size_t i) const {
        if (i == 0)
            return directionFrom(0);
        if (i + 1 == points_.size())
            return directionFrom(i - 1);
        const Vector middle = unit(sum(directionFrom(i - 1), 1.0, directionFrom(i)));
        return dot(middle, middle) < 0.5 ? directionFrom(i) : middle;
    }

    void addPoint(const Vector& place, const Vector& normal) {
        surface_.points.push_back(turned(place, metres_));
        surface_.normals.push_back(turned(normal, 1.0));
    }

    static Vector outward(const Vector& along, const Vector& side, std::uint32_t s) {
        const double angle = 2 * std::numbers::pi * s / kSides;
        const Vector none = {0, 0, 0};
        return sum(sum(none, std::cos(angle), side), std::sin(angle), cross(along, side));
    }

    /// The points of the tube along `along` at its cut with `plane`.
    void ring(std::size_t i, const Vector& along, const Vector& side, const Vector& plane) {
        for (std::uint32_t s = 0; s < kSides; ++s) {
            const Vector normal = outward(along, side, s);
            const Vector edge = sum(points_[i], radius_, normal);
            const double slope = std::clamp(-dot(normal, plane) / std::max(dot(along, plane), 1e-9),
                                            -kLongestMiter, kLongestMiter);
            addPoint(sum(edge, radius_ * slope, along), normal);
        }
    }

    /// Closes an end: `way` is -1 at the beginning.
    void cap(const Vector& center, const Vector& along, const Vector& side, double way) {
        const auto first = static_cast<std::uint32_t>(surface_.points.size());
        const Vector normal = sum({0, 0, 0}, way, along);
        for (std::uint32_t s = 0; s < kSides; ++s)
            addPoint(sum(center, radius_, outward(along, side, s)), normal);
        for (std::uint32_t s = 1; s + 1 < kSides; ++s)
            for (const std::uint32_t row : {0u, way > 0 ? s : s + 1, way > 0 ? s + 1 : s})
                surface_.rows.push_back(first + row);
    }

    double radius_;
    double metres_;
    ShadedSurface& surface_;
    std::vector<Vector> points_;
};

}  // namespace

void addTube(std::span<const double> path, double diameter, double metres, ShadedSurface& surface) {
    Tube(path, diameter / 2, metres, surface).add();
}

}  // namespace kvocaeio::host
