/// Coordinate systems of a deck, and the way from each to the basic one.
#pragma once

#include <array>
#include <cstddef>
#include <unordered_map>
#include <vector>

namespace kvocaeio::tidy::nastran {

using Point = std::array<double, 3>;

/// A coordinate system in the basic one.
struct Frame {
    char kind = 'R';  ///< rectangular, cylindrical ('C') or spherical ('S')
    Point origin{};
    std::array<Point, 3> axes{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

    /// The basic coordinates of a point whose coordinates in this system are `local`: x, y, z, or
    /// radius, angle and z, or radius, angle from the z axis and azimuth; angles in degrees.
    Point basic(const Point& local) const;
};

/// All coordinate systems of a deck by their numbers; 0 is the basic one. They may be defined by
/// each other in any order.
class FrameTable {
  public:
    /// Adds one by the coordinates of three points in the system `reference`: the origin, a point
    /// of the z axis, and one of the half plane in which x grows. A number that is there is
    /// replaced.
    void addByPoints(int number, char kind, int reference, const std::array<Point, 3>& points);
    /// Adds one by three grid points, whose places must be added as well.
    void addByGrids(int number, char kind, const std::array<int, 3>& grids);

    /// Whether the place of a grid point is needed.
    bool needsGrid(int grid) const { return grids_.contains(grid); }
    bool needsGrids() const { return !grids_.empty(); }
    /// Adds the place of a grid point: its coordinates in the system `reference`.
    void addGrid(int grid, int reference, const Point& local);

    bool holds(int number) const { return number == 0 || systems_.contains(number); }
    /// The system of a number. Null where it is not defined, or where it has no axes.
    const Frame* find(int number);

    void clear() {
        systems_.clear();
        grids_.clear();
    }

  private:
    enum class State { kNew, kBegun, kKnown, kWrong };
    struct System {
        Frame frame;
        State state = State::kNew;
        bool isByGrids = false;
        int reference = 0;
        std::array<int, 3> grids{};
        std::array<Point, 3> points{};
    };
    struct Grid {
        bool isKnown = false;
        int reference = 0;
        Point local{};
    };

    // What stands in the way of a system: one that must be found before.
    System* findUnknown(const System& system);
    bool place(System& system);
    bool placePoint(int reference, const Point& local, Point& basic);

    std::unordered_map<int, System> systems_;
    std::unordered_map<int, Grid> grids_;
    Frame basicFrame_;
};

}  // namespace kvocaeio::tidy::nastran
