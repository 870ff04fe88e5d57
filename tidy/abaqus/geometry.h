/// Points, and the coordinate systems that they are given in.
#pragma once

#include <array>

namespace kvocaeio::tidy::abaqus {

using Point = std::array<double, 3>;

Point operator+(const Point& a, const Point& b);
Point operator-(const Point& a, const Point& b);
Point operator*(double factor, const Point& a);
double dot(const Point& a, const Point& b);
Point cross(const Point& a, const Point& b);
double lengthOf(const Point& a);
bool isFinite(const Point& a);

/// A rigid motion or reflection: x becomes M x + t.
struct Placement {
    std::array<Point, 3> rows{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
    Point shift{};
    bool isIdentity = true;

    Point operator()(const Point& point) const;
};

/// Translation by `shift`.
Placement translation(const Point& shift);
/// Rotation by an angle in degrees about the axis from `a` to `b`. No rotation where they are
/// equal.
Placement rotation(const Point& a, const Point& b, double degrees);
/// First `a`, then `b`.
Placement chained(const Placement& a, const Placement& b);
/// From the local system with the origin `a`, `b` on its x axis and `c` in its xy plane. False
/// where the points define none.
bool localSystem(const Point& a, const Point& b, const Point& c, Placement& system);
/// Reflection in the plane through three points; false where they define none.
bool mirror(const Point& a, const Point& b, const Point& c, Placement& placement);
/// Reflection in the line through two points; false where they define none.
bool lineMirror(const Point& a, const Point& b, Placement& placement);

/// Kinds of coordinates, by the letters of the parameter SYSTEM.
enum class Coordinates : char { kRectangular = 'R', kCylindrical = 'C', kSpherical = 'S' };

/// Rectangular coordinates of a point: from radius, angle in degrees and z, or from radius and two
/// angles in degrees, that from the x axis and that from the xy plane.
Point rectangular(const Point& point, Coordinates coordinates);

}  // namespace kvocaeio::tidy::abaqus
