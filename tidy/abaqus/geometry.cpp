/// Coordinate systems and rigid motions.
#include "tidy/abaqus/geometry.h"

#include <cmath>
#include <cstddef>
#include <numbers>

namespace kvocaeio::tidy::abaqus {

namespace {

// Sine and cosine of an angle in degrees, exact at multiples of a right angle.
struct Turn {
    double sine;
    double cosine;
};

Turn turnOf(double degrees) {
    const double rest = std::remainder(degrees, 360.0);
    if (rest == 0.0)
        return {0.0, 1.0};
    if (std::abs(rest) == 180.0)
        return {0.0, -1.0};
    if (std::abs(rest) == 90.0)
        return {rest / 90.0, 0.0};
    const double radians = rest * std::numbers::pi / 180.0;
    return {std::sin(radians), std::cos(radians)};
}

// The map M about the fixed point `center`.
Placement about(const Point& center, const std::array<Point, 3>& rows) {
    Placement placement{rows, {}, false};
    placement.shift = center - placement(center);
    return placement;
}

// Householder's reflection in the plane through `center` with the normal `n`; the same with the
// sign turned is the reflection in the line along `n`.
Placement reflection(const Point& center, const Point& n, double sign) {
    std::array<Point, 3> rows{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k)
            rows[i][k] = sign * ((i == k ? 1.0 : 0.0) - 2.0 * n[i] * n[k] / dot(n, n));
    return about(center, rows);
}

}  // namespace

Point operator+(const Point& a, const Point& b) {
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

Point operator-(const Point& a, const Point& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Point operator*(double factor, const Point& a) {
    return {factor * a[0], factor * a[1], factor * a[2]};
}

double dot(const Point& a, const Point& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Point cross(const Point& a, const Point& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double lengthOf(const Point& a) {
    return std::sqrt(dot(a, a));
}

bool isFinite(const Point& a) {
    return std::isfinite(a[0]) && std::isfinite(a[1]) && std::isfinite(a[2]);
}

Point Placement::operator()(const Point& point) const {
    if (isIdentity)
        return point;
    return Point{dot(rows[0], point), dot(rows[1], point), dot(rows[2], point)} + shift;
}

Placement translation(const Point& shift) {
    Placement placement;
    placement.shift = shift;
    placement.isIdentity = shift == Point{};
    return placement;
}

Placement rotation(const Point& a, const Point& b, double degrees) {
    const Point axis = b - a;
    const Turn turn = turnOf(degrees);
    if (lengthOf(axis) == 0.0 || (turn.sine == 0.0 && turn.cosine == 1.0))
        return {};
    const double square = dot(axis, axis);  // squares are exact where roots are not
    const double rest = (1.0 - turn.cosine) / square;
    const auto [s, c] = turn;
    const Point n = (s / std::sqrt(square)) * axis;
    std::array<Point, 3> rows{{{c, -n[2], n[1]}, {n[2], c, -n[0]}, {-n[1], n[0], c}}};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k)
            rows[i][k] += axis[i] * axis[k] * rest;
    return about(a, rows);
}

Placement chained(const Placement& a, const Placement& b) {
    if (a.isIdentity || b.isIdentity)
        return a.isIdentity ? b : a;
    Placement both;
    both.isIdentity = false;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k)
            both.rows[i][k] = b.rows[i][0] * a.rows[0][k] + b.rows[i][1] * a.rows[1][k] +
                              b.rows[i][2] * a.rows[2][k];
    both.shift = b(a.shift);
    return both;
}

bool localSystem(const Point& a, const Point& b, const Point& c, Placement& system) {
    const Point x = b - a;
    const Point z = cross(x, c - a);
    if (lengthOf(x) == 0.0 || lengthOf(z) == 0.0)
        return false;
    const Point unitX = (1.0 / lengthOf(x)) * x;
    const Point unitZ = (1.0 / lengthOf(z)) * z;
    const Point unitY = cross(unitZ, unitX);
    for (std::size_t i = 0; i < 3; ++i)
        system.rows[i] = {unitX[i], unitY[i], unitZ[i]};
    system.shift = a;
    system.isIdentity = false;
    return true;
}

bool mirror(const Point& a, const Point& b, const Point& c, Placement& placement) {
    const Point normal = cross(b - a, c - a);
    if (lengthOf(normal) == 0.0)
        return false;
    placement = reflection(a, normal, 1.0);
    return true;
}

bool lineMirror(const Point& a, const Point& b, Placement& placement) {
    if (lengthOf(b - a) == 0.0)
        return false;
    placement = reflection(a, b - a, -1.0);
    return true;
}

Point rectangular(const Point& point, Coordinates coordinates) {
    if (coordinates == Coordinates::kRectangular)
        return point;
    const Turn theta = turnOf(point[1]);
    if (coordinates == Coordinates::kCylindrical)
        return {point[0] * theta.cosine, point[0] * theta.sine, point[2]};
    const Turn phi = turnOf(point[2]);
    return {point[0] * phi.cosine * theta.cosine, point[0] * phi.cosine * theta.sine,
            point[0] * phi.sine};
}

}  // namespace kvocaeio::tidy::abaqus
