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
        : radius_(radius), metres_(metres), surface_(surface), begin_(surface.points.size()) {
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
        Ring ring = ringAt(0, along, side);
        addCap(ring, sum({0, 0, 0}, -1.0, along));
        for (std::size_t i = 0; i + 1 < points_.size(); ++i) {
            const Vector next = directionFrom(i);
            side = turnedWith(along, next, side);
            along = next;
            const Ring end = ringAt(i + 1, along, side);
            addSides(ring, end, along, side);
            ring = end;
        }
        addCap(ring, along);
    }

  private:
    using Ring = std::array<Vector, kSides>;

    Vector directionFrom(std::size_t i) const {
        return unit(sum(points_[i + 1], -1.0, points_[i]));
    }

    /// `side`, across `from`, turned by the least angle that turns `from` to `to`.
    static Vector turnedWith(const Vector& from, const Vector& to, const Vector& side) {
        const double cosine = dot(from, to);
        if (cosine < -0.999999)
            return across(to);
        return unit(sum(side, -dot(side, to) / (1.0 + cosine), sum(from, 1.0, to)));
    }

    /// The direction across which the tube is cut at a point.
    Vector cutAt(std::size_t i) const {
        if (i == 0)
            return directionFrom(0);
        if (i + 1 == points_.size())
            return directionFrom(i - 1);
        const Vector middle = unit(sum(directionFrom(i - 1), 1.0, directionFrom(i)));
        return dot(middle, middle) < 0.5 ? directionFrom(i) : middle;
    }

    static Vector outward(const Vector& along, const Vector& side, std::size_t s) {
        const double angle = 2 * std::numbers::pi * static_cast<double>(s) / kSides;
        const Vector direction = sum({0, 0, 0}, std::cos(angle), side);
        return sum(direction, std::sin(angle), cross(along, side));
    }

    /// Where the edges of the tube along `along` are cut.
    Ring ringAt(std::size_t i, const Vector& along, const Vector& side) const {
        const Vector cut = cutAt(i);
        Ring ring;
        for (std::size_t s = 0; s < kSides; ++s) {
            const Vector normal = outward(along, side, s);
            const double slope = std::clamp(-dot(normal, cut) / std::max(dot(along, cut), 1e-9),
                                            -kLongestMiter, kLongestMiter);
            ring[s] = sum(sum(points_[i], radius_, normal), radius_ * slope, along);
        }
        return ring;
    }

    void addPoint(const Vector& place, const Vector& normal) {
        surface_.points.push_back(turned(place, metres_));
        surface_.normals.push_back(turned(normal, 1.0));
    }

    void addSides(const Ring& begin, const Ring& end, const Vector& along, const Vector& side) {
        const auto first = static_cast<std::uint32_t>(surface_.points.size());
        for (const Ring* ring : {&begin, &end})
            for (std::size_t s = 0; s < kSides; ++s)
                addPoint((*ring)[s], outward(along, side, s));
        for (std::uint32_t s = 0; s < kSides; ++s) {
            const std::uint32_t next = (s + 1) % kSides;
            for (const std::uint32_t row : {s, next, kSides + next, s, kSides + next, kSides + s})
                surface_.rows.push_back(first + row);
        }
    }

    /// Closes the first end, where the ring is clockwise as seen from outside, or the last one.
    void addCap(const Ring& ring, const Vector& normal) {
        const bool isFirst = surface_.points.size() == begin_;
        const auto first = static_cast<std::uint32_t>(surface_.points.size());
        for (const Vector& place : ring)
            addPoint(place, normal);
        for (std::uint32_t s = 1; s + 1 < kSides; ++s)
            for (const std::uint32_t row : {0u, isFirst ? s + 1 : s, isFirst ? s : s + 1})
                surface_.rows.push_back(first + row);
    }

    double radius_;
    double metres_;
    ShadedSurface& surface_;
    std::size_t begin_;  // of its points in the surface
    std::vector<Vector> points_;
};

}  // namespace

void addTube(std::span<const double> path, double diameter, double metres, ShadedSurface& surface) {
    Tube(path, diameter / 2, metres, surface).add();
}

}  // namespace kvocaeio::host
