/// Axes by three points, system after system.
#include "tidy/nastran/frames.h"

#include <cmath>
#include <numbers>

namespace kvocaeio::tidy::nastran {

namespace {

Point minus(const Point& a, const Point& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Point cross(const Point& a, const Point& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double length(const Point& a) {
    return std::hypot(a[0], a[1], a[2]);
}

// False for a vector without a direction.
bool normalise(Point& a) {
    const double size = length(a);
    if (!(size > 0.0) || !std::isfinite(size))
        return false;
    for (double& coordinate : a)
        coordinate /= size;
    return true;
}

// A quarter turn more is exact, as it is in a deck that means the next axis.
void turn(double degrees, double& cosine, double& sine) {
    const double quarters = degrees / 90.0;
    if (quarters == std::floor(quarters) && std::abs(quarters) < 1e9) {
        constexpr std::array<double, 4> kCosines{1.0, 0.0, -1.0, 0.0};
        const auto quarter = static_cast<std::size_t>(static_cast<long long>(quarters) & 3);
        cosine = kCosines[quarter];
        sine = kCosines[(quarter + 3) % 4];
        return;
    }
    const double angle = degrees * (std::numbers::pi / 180.0);
    cosine = std::cos(angle);
    sine = std::sin(angle);
}

Point rectangular(char kind, const Point& local) {
    if (kind == 'R')
        return local;
    double cosine = 0.0;
    double sine = 0.0;
    turn(local[1], cosine, sine);
    if (kind == 'C')
        return {local[0] * cosine, local[0] * sine, local[2]};
    double cosineAround = 0.0;
    double sineAround = 0.0;
    turn(local[2], cosineAround, sineAround);
    const double radius = local[0] * sine;
    return {radius * cosineAround, radius * sineAround, local[0] * cosine};
}

}  // namespace

Point Frame::basic(const Point& local) const {
    const Point along = rectangular(kind, local);
    Point out = origin;
    for (std::size_t axis = 0; axis < 3; ++axis)
        for (std::size_t i = 0; i < 3; ++i)
            out[i] += along[axis] * axes[axis][i];
    return out;
}

void FrameTable::addByPoints(int number, char kind, int reference,
                             const std::array<Point, 3>& points) {
    System& system = systems_[number];
    system = {};
    system.frame.kind = kind;
    system.reference = reference;
    system.points = points;
}

void FrameTable::addByGrids(int number, char kind, const std::array<int, 3>& grids) {
    System& system = systems_[number];
    system = {};
    system.frame.kind = kind;
    system.isByGrids = true;
    system.grids = grids;
    for (const int grid : grids)
        grids_[grid];
}

void FrameTable::addGrid(int grid, int reference, const Point& local) {
    grids_[grid] = {true, reference, local};
}

FrameTable::System* FrameTable::findUnknown(const System& system) {
    const auto unknown = [this](int reference) -> System* {
        const auto found = systems_.find(reference);
        if (found == systems_.end() || found->second.state == State::kKnown ||
            found->second.state == State::kWrong)
            return nullptr;
        return &found->second;
    };
    if (!system.isByGrids)
        return unknown(system.reference);
    for (const int grid : system.grids)
        if (System* const found = unknown(grids_[grid].reference))
            return found;
    return nullptr;
}

// Systems that are defined by each other are placed from a stack: a chain may be long.
const Frame* FrameTable::find(int number) {
    if (number == 0)
        return &basicFrame_;
    const auto found = systems_.find(number);
    if (found == systems_.end())
        return nullptr;
    std::vector<System*> stack;
    if (found->second.state == State::kNew)
        stack.push_back(&found->second);
    while (!stack.empty()) {
        System& system = *stack.back();
        system.state = State::kBegun;
        System* const before = findUnknown(system);
        if (before != nullptr && before->state == State::kNew) {
            stack.push_back(before);
            continue;
        }
        // One that has begun is further down: both are defined by each other.
        system.state = before == nullptr && place(system) ? State::kKnown : State::kWrong;
        stack.pop_back();
    }
    return found->second.state == State::kKnown ? &found->second.frame : nullptr;
}

bool FrameTable::placePoint(int reference, const Point& local, Point& basic) {
    if (reference == 0) {
        basic = local;
        return true;
    }
    const auto found = systems_.find(reference);
    if (found == systems_.end() || found->second.state != State::kKnown)
        return false;
    basic = found->second.frame.basic(local);
    return true;
}

bool FrameTable::place(System& system) {
    std::array<Point, 3> points{};
    for (std::size_t i = 0; i < 3; ++i) {
        if (!system.isByGrids) {
            if (!placePoint(system.reference, system.points[i], points[i]))
                return false;
            continue;
        }
        const Grid& grid = grids_[system.grids[i]];
        if (!grid.isKnown || !placePoint(grid.reference, grid.local, points[i]))
            return false;
    }
    Point alongZ = minus(points[1], points[0]);
    if (!normalise(alongZ))
        return false;
    const Point inPlane = minus(points[2], points[0]);
    Point alongY = cross(alongZ, inPlane);
    constexpr double kLeastSine = 1e-10;
    if (length(alongY) <= kLeastSine * length(inPlane) || !normalise(alongY))
        return false;
    system.frame.origin = points[0];
    system.frame.axes = {cross(alongY, alongZ), alongY, alongZ};
    return true;
}

}  // namespace kvocaeio::tidy::nastran
