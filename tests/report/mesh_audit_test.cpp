/// Repeated and unused nodes, coordinates, volumes.
#include "report/mesh_audit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "support/findings.h"

namespace kvocaeio::report {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The corners of a unit cube, in the order of a hexahedron.
const std::vector<double> kCube = {0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0,
                                   0, 0, 1, 1, 0, 1, 1, 1, 1, 0, 1, 1};

// What is found of one element over the points; nodes are numbered from 1.
std::vector<std::string> auditOf(const std::vector<double>& points,
                                 const std::vector<std::uint32_t>& rows, std::size_t corners) {
    text::Findings findings;
    MeshAudit<double> audit(findings, {points.data(), 3, points.size() / 3});
    audit.element(17, rows, corners);
    audit.nodes([](std::size_t row) { return static_cast<long long>(row) + 1; });
    return test::describe(findings);
}

std::vector<double> pointsOf(const std::vector<std::uint32_t>& corners) {
    std::vector<double> points;
    for (const std::uint32_t corner : corners)
        points.insert(points.end(), kCube.begin() + 3 * corner, kCube.begin() + 3 * corner + 3);
    return points;
}

TEST(MeshAudit, PassesSolidsOfEveryShape) {
    EXPECT_THAT(auditOf(kCube, {0, 1, 2, 3, 4, 5, 6, 7}, 8), IsEmpty());
    EXPECT_THAT(auditOf(pointsOf({0, 1, 2, 4, 5, 6}), {0, 1, 2, 3, 4, 5}, 6), IsEmpty());
    EXPECT_THAT(auditOf(pointsOf({0, 1, 2, 3, 4}), {0, 1, 2, 3, 4}, 5), IsEmpty());
    EXPECT_THAT(auditOf(pointsOf({0, 1, 2, 4}), {0, 1, 2, 3}, 4), IsEmpty());
}

TEST(MeshAudit, FindsSolidsInsideOutOrFlat) {
    const auto found = ElementsAre("mesh.volume-not-positive 0:0 element 17");
    EXPECT_THAT(auditOf(kCube, {4, 5, 6, 7, 0, 1, 2, 3}, 8), found);
    EXPECT_THAT(auditOf(pointsOf({0, 1, 2, 4, 5, 6}), {3, 4, 5, 0, 1, 2}, 6), found);
    EXPECT_THAT(auditOf(pointsOf({0, 1, 2, 3, 4}), {3, 2, 1, 0, 4}, 5), found);
    EXPECT_THAT(auditOf(pointsOf({0, 1, 2, 4}), {0, 2, 1, 3}, 4), found);
    EXPECT_THAT(auditOf(pointsOf({0, 1, 2, 3}), {0, 1, 2, 3}, 4), found);
}

TEST(MeshAudit, MeasuresVolumesByTheSizeOfTheSolid) {
    std::vector<double> small = pointsOf({0, 1, 2, 4});
    for (double& coordinate : small)
        coordinate *= 1e-9;
    EXPECT_THAT(auditOf(small, {0, 1, 2, 3}, 4), IsEmpty());
    std::vector<double> flat = pointsOf({0, 1, 2, 4});
    flat[11] = 1e-12;
    EXPECT_THAT(auditOf(flat, {0, 1, 2, 3}, 4),
                ElementsAre("mesh.volume-not-positive 0:0 element 17"));
}

TEST(MeshAudit, FindsNodesThatAreNamedTwice) {
    EXPECT_THAT(auditOf(pointsOf({0, 1, 2, 4}), {0, 1, 2, 3, 3, 3, 3, 3}, 8),
                ElementsAre("mesh.node-repeated 0:0 element 17"));
    EXPECT_THAT(auditOf(pointsOf({0, 1}), {0, 1, 1}, 0),
                ElementsAre("mesh.node-repeated 0:0 element 17"));
}

TEST(MeshAudit, LeavesNodesThatAreNotDefinedToOthers) {
    constexpr std::uint32_t kNoRow = MeshAudit<double>::kNoRow;
    EXPECT_THAT(auditOf(pointsOf({0, 1}), {0, 1, kNoRow, kNoRow}, 4), IsEmpty());
}

TEST(MeshAudit, FindsNodesThatNoElementHas) {
    EXPECT_THAT(auditOf(kCube, {0, 1, 2, 4}, 4),
                ElementsAre("mesh.node-unused 0:0 node 4", "mesh.node-unused 0:0 node 6",
                            "mesh.node-unused 0:0 node 7", "mesh.node-unused 0:0 node 8"));
}

TEST(MeshAudit, FindsCoordinatesThatAreNotFinite) {
    std::vector<double> points = pointsOf({0, 1, 2});
    points[4] = std::numeric_limits<double>::infinity();
    points[8] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THAT(auditOf(points, {0, 1, 2}, 0),
                ElementsAre("mesh.coordinate-not-finite 0:0 node 2",
                            "mesh.coordinate-not-finite 0:0 node 3"));
}

TEST(MeshAudit, DoesNotMeasureSolidsOfSuchCoordinates) {
    std::vector<double> points = pointsOf({0, 1, 2, 4});
    points[11] = std::numeric_limits<double>::infinity();
    EXPECT_THAT(auditOf(points, {0, 1, 2, 3}, 4),
                ElementsAre("mesh.coordinate-not-finite 0:0 node 4"));
}

TEST(MeshAudit, SkipsRowsWithoutANode) {
    text::Findings findings;
    const std::vector<float> rows(8);
    MeshAudit<float> audit(findings, {rows.data() + 1, 4, 2});
    audit.nodes([](std::size_t row) { return row == 1 ? 2LL : 0LL; });
    EXPECT_THAT(test::describe(findings), ElementsAre("mesh.node-unused 0:0 node 2"));
}

}  // namespace
}  // namespace kvocaeio::report
