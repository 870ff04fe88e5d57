/// Repeated and unused nodes, coordinates that are no numbers, volumes.
#include "report/mesh_audit.h"

#include <algorithm>
#include <cmath>

#include "text/place_text.h"

namespace kvocaeio::report {

using text::FindingKind;
using text::Severity;

const std::array<FindingKind, 4> kMeshFindingKinds{{
    {"mesh.coordinate-not-finite", Severity::kError,
     "coordinates of nodes are no finite numbers; the first is that of {}",
     "A coordinate is NaN or infinite: the file says so, or its exponent is too large.",
     "Correct the coordinates in the program that wrote the file"},
    {"mesh.node-repeated", Severity::kWarning, "elements name a node twice; the first is {}",
     "The element is stored as the file gives it. Programs write collapsed elements that way, such "
     "as a wedge as a hexahedron.",
     "Write such elements as the shape that they are"},
    {"mesh.volume-not-positive", Severity::kWarning,
     "elements have no volume or a negative one; the first is {}",
     "The nodes of a solid are in one plane, or in an order that turns it inside out. The element "
     "is stored as the file gives it.",
     "Check the order of the element's nodes, and whether coordinates were lost"},
    {"mesh.node-unused", Severity::kNote, "nodes belong to no element; the first is {}",
     "Reference points and nodes of elements that are not read have no element that is read.", ""},
}};

namespace {

constexpr std::size_t kMostCorners = 8;
// Of a solid with edges of length 1; rounding of coordinates stays far below.
constexpr double kLeastVolume = 1e-9;

using Point = std::array<double, 3>;

Point minus(const Point& a, const Point& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

// Six times the volume of the tetrahedron with these corners, positive where b, c, d turn left seen
// from outside of d.
double sixVolumes(const Point& a, const Point& b, const Point& c, const Point& d) {
    const Point u = minus(b, a);
    const Point v = minus(c, a);
    const Point w = minus(d, a);
    return (u[1] * v[2] - u[2] * v[1]) * w[0] + (u[2] * v[0] - u[0] * v[2]) * w[1] +
           (u[0] * v[1] - u[1] * v[0]) * w[2];
}

using Tetrahedron = std::array<unsigned char, 4>;

// Tetrahedra that fill a solid of plane faces.
constexpr Tetrahedron kOfTetrahedron[] = {{0, 1, 2, 3}};
constexpr Tetrahedron kOfPyramid[] = {{0, 1, 2, 4}, {0, 2, 3, 4}};
constexpr Tetrahedron kOfWedge[] = {{0, 1, 2, 3}, {1, 2, 3, 4}, {2, 3, 4, 5}};
constexpr Tetrahedron kOfHexahedron[] = {{0, 1, 2, 6}, {0, 2, 3, 6}, {0, 3, 7, 6},
                                         {0, 7, 4, 6}, {0, 4, 5, 6}, {0, 5, 1, 6}};

std::span<const Tetrahedron> tetrahedraOf(std::size_t corners) {
    switch (corners) {
        case 4:
            return kOfTetrahedron;
        case 5:
            return kOfPyramid;
        case 6:
            return kOfWedge;
        case 8:
            return kOfHexahedron;
        default:
            return {};
    }
}

}  // namespace

template <class Number>
MeshAudit<Number>::MeshAudit(text::Findings& findings, const CoordinateTable<Number>& coordinates)
    : findings_(findings), coordinates_(coordinates), isUsed_(coordinates.rows) {}

template <class Number>
void MeshAudit<Number>::element(long long oid, std::span<const std::uint32_t> rows,
                                std::size_t corners) {
    bool isWhole = true;
    bool repeats = false;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i] >= coordinates_.rows) {
            isWhole = false;
            continue;
        }
        isUsed_[rows[i]] = true;
        for (std::size_t j = 0; j < i; ++j)
            repeats = repeats || rows[j] == rows[i];
    }
    const bool isSolid = corners > 0 && corners <= rows.size() && isWhole && !repeats;
    const bool isFlat = isSolid && !hasVolume(rows.first(corners));
    if (!repeats && !isFlat) [[likely]]
        return;
    noteText(&findings_, repeats ? MeshFinding::kNodeRepeated : MeshFinding::kVolumeNotPositive,
             "element ", oid);
}

template <class Number>
bool MeshAudit<Number>::isFinite(std::size_t row) const {
    const Number* const at = coordinates_.first + row * coordinates_.stride;
    return std::isfinite(at[0]) && std::isfinite(at[1]) && std::isfinite(at[2]);
}

template <class Number>
bool MeshAudit<Number>::hasVolume(std::span<const std::uint32_t> corners) const {
    std::array<Point, kMostCorners> points;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Number* const at = coordinates_.first + corners[i] * coordinates_.stride;
        points[i] = {at[0], at[1], at[2]};
    }
    double volume = 0;
    for (const auto& [a, b, c, d] : tetrahedraOf(corners.size()))
        volume += sixVolumes(points[a], points[b], points[c], points[d]);
    double size = 0;
    for (std::size_t i = 1; i < corners.size(); ++i)
        for (const double distance : minus(points[i], points[0]))
            size = std::max(size, std::abs(distance));
    return !std::isfinite(size) || !(volume <= kLeastVolume * size * size * size);
}

template <class Number>
void MeshAudit<Number>::noteNode(std::size_t row, long long oid) {
    if (oid == 0)
        return;
    if (!isUsed_[row])
        noteText(&findings_, MeshFinding::kNodeUnused, "node ", oid);
    if (!isFinite(row))
        noteText(&findings_, MeshFinding::kCoordinateNotFinite, "node ", oid);
}

template class MeshAudit<float>;
template class MeshAudit<double>;

}  // namespace kvocaeio::report
