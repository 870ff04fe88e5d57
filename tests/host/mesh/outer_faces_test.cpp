/// The faces of a mesh that can be seen.
#include "mesh/outer_faces.h"

#include <gmock/gmock.h>

namespace kvocaeio::test {
namespace {

using host::CellKind;
using host::FaceGroup;
using host::Mesh;
using host::MeshSection;
using host::Origin;
using host::outerFaces;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

MeshSection section(const char* name, CellKind kind, std::vector<int> nodes,
                    Origin origin = Origin::kSolid) {
    MeshSection made;
    made.name = name;
    made.kind = kind;
    made.origin = origin;
    made.nodes = std::move(nodes);
    return made;
}

Mesh meshOf(std::vector<MeshSection> sections) {
    Mesh mesh;
    mesh.places.resize(60);  // where the nodes are does not matter
    mesh.sections = std::move(sections);
    return mesh;
}

const std::vector<int> kLower = {0, 1, 2, 3, 4, 5, 6, 7};
const std::vector<int> kUpper = {4, 5, 6, 7, 8, 9, 10, 11};

TEST(OuterFaces, OfOneHexahedronAreItsSix) {
    const auto groups = outerFaces(meshOf({section("A", CellKind::kHexahedron8, kLower)}));
    ASSERT_THAT(groups, SizeIs(1));
    EXPECT_EQ(groups[0].section, 0u);
    EXPECT_EQ(groups[0].kind, CellKind::kQuadrilateral4);
    EXPECT_FALSE(groups[0].isBetweenSections);
    EXPECT_THAT(groups[0].elements, ElementsAre(0, 0, 0, 0, 0, 0));
    EXPECT_THAT(groups[0].nodes, ElementsAre(0, 3, 2, 1, 4, 5, 6, 7, 0, 1, 5, 4, 1, 2, 6, 5, 2, 3,
                                             7, 6, 0, 4, 7, 3));
}

TEST(OuterFaces, LackThoseBetweenTwoElements) {
    std::vector<int> both = kLower;
    both.insert(both.end(), kUpper.begin(), kUpper.end());
    const auto groups = outerFaces(meshOf({section("A", CellKind::kHexahedron8, both)}));
    ASSERT_THAT(groups, SizeIs(1));
    EXPECT_THAT(groups[0].elements, ElementsAre(0, 0, 0, 0, 0, 1, 1, 1, 1, 1));
}

TEST(OuterFaces, BetweenSectionsAreThereTwice) {
    const auto groups = outerFaces(meshOf({section("A", CellKind::kHexahedron8, kLower),
                                           section("B", CellKind::kHexahedron8, kUpper)}));
    ASSERT_THAT(groups, SizeIs(4));
    EXPECT_THAT(groups[0].elements, SizeIs(5));
    EXPECT_TRUE(groups[1].isBetweenSections);
    EXPECT_EQ(groups[1].section, 0u);
    EXPECT_THAT(groups[1].nodes, ElementsAre(4, 5, 6, 7));
    EXPECT_THAT(groups[2].elements, SizeIs(5));
    EXPECT_FALSE(groups[2].isBetweenSections);
    EXPECT_EQ(groups[3].section, 1u);
    EXPECT_THAT(groups[3].nodes, ElementsAre(4, 7, 6, 5));
}

TEST(OuterFaces, SectionsOfOneNameAreOne) {
    const auto groups = outerFaces(meshOf({section("A", CellKind::kHexahedron8, kLower),
                                           section("A", CellKind::kPyramid5, {4, 5, 6, 7, 8})}));
    ASSERT_THAT(groups, SizeIs(2));
    EXPECT_THAT(groups[0].elements, SizeIs(5));
    EXPECT_EQ(groups[1].kind, CellKind::kTriangle3);
    EXPECT_THAT(groups[1].nodes, ElementsAre(4, 5, 8, 5, 6, 8, 6, 7, 8, 7, 4, 8));
}

TEST(OuterFaces, OfAQuadraticElementHaveTheNodesOfTheirEdges) {
    const auto groups = outerFaces(
        meshOf({section("A", CellKind::kTetrahedron10, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9})}));
    ASSERT_THAT(groups, SizeIs(1));
    EXPECT_EQ(groups[0].kind, CellKind::kTriangle6);
    EXPECT_THAT(groups[0].nodes, ElementsAre(0, 2, 1, 6, 5, 4, 0, 1, 3, 4, 8, 7, 1, 2, 3, 5, 9, 8,
                                             0, 3, 2, 7, 9, 6));
}

TEST(OuterFaces, LinearAndQuadraticElementsMeetByTheirCorners) {
    const auto groups =
        outerFaces(meshOf({section("A", CellKind::kTetrahedron10, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}),
                           section("A", CellKind::kTetrahedron4, {1, 3, 2, 11})}));
    ASSERT_THAT(groups, SizeIs(2));
    EXPECT_THAT(groups[0].elements, SizeIs(3));
    EXPECT_THAT(groups[1].elements, SizeIs(3));
}

TEST(OuterFaces, OfAHexahedronWithTwoNodesInOnePlaceAreFive) {
    const auto groups =
        outerFaces(meshOf({section("A", CellKind::kHexahedron8, {0, 1, 2, 2, 4, 5, 6, 6}),
                           section("A", CellKind::kWedge6, {4, 5, 6, 7, 8, 9})}));
    ASSERT_THAT(groups, SizeIs(3));  // its upper face is that of the wedge, a triangle
    EXPECT_THAT(groups[0].nodes, ElementsAre(0, 2, 2, 1, 0, 1, 5, 4, 1, 2, 6, 5, 0, 4, 6, 2));
    EXPECT_THAT(groups[1].nodes, ElementsAre(7, 8, 9));
    EXPECT_THAT(groups[2].elements, SizeIs(3));
}

TEST(OuterFaces, OfElementsInOnePlaceAreNone) {
    std::vector<int> twice = kLower;
    twice.insert(twice.end(), kLower.begin(), kLower.end());
    EXPECT_THAT(outerFaces(meshOf({section("A", CellKind::kHexahedron8, twice)})), IsEmpty());
}

TEST(OuterFaces, ShellsAndFacesOfLoadsAreAsTheyAre) {
    const auto groups = outerFaces(
        meshOf({section("A", CellKind::kLine2, {0, 1}, Origin::kLine),
                section("B", CellKind::kTriangle3, {0, 1, 2, 2, 1, 3}, Origin::kShell),
                section("C", CellKind::kTetrahedron4, {0, 1, 2, 3}),
                section("D", CellKind::kQuadrilateral4, {0, 1, 2, 3}, Origin::kLoadFace)}));
    ASSERT_THAT(groups, SizeIs(3));
    EXPECT_EQ(groups[0].section, 1u);
    EXPECT_THAT(groups[0].nodes, ElementsAre(0, 1, 2, 2, 1, 3));
    EXPECT_THAT(groups[0].elements, ElementsAre(0, 1));
    EXPECT_THAT(groups[1].elements, SizeIs(4));
    EXPECT_EQ(groups[2].section, 3u);
}

}  // namespace
}  // namespace kvocaeio::test
