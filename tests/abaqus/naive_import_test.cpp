/// The plain import itself, on examples that a reader can check by hand.
#include "abaqus/naive_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "support/files.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;

NaiveImport importOf(const std::string& deck) {
    TempFolder folder;
    return naiveImport(folder.write("deck.inp", deck));
}

TEST(NaiveImport, NodesOfSeveralBlocksFormOneTable) {
    const NaiveImport tables =
        importOf("*Node\n1, 1.5, 2\n\n** c\n*NODE PRINT\n9\n*NODE\n3000000000, 4, 5, 6");
    EXPECT_THAT(tables.nodeIds, ElementsAre(1, 0, 2147483647));
    EXPECT_THAT(tables.coords, ElementsAre(1.5, 2, 0, 0, 0, 0, 4, 5, 6));
}

TEST(NaiveImport, ElementsRunOverLinesAndEndRoundAndRound) {
    const NaiveImport tables =
        importOf("*ELEMENT, TYPE= C3D4 , ELSET\n7, 1,\n** 2\n, 3, 4\n\n8, x, 2");
    ASSERT_EQ(tables.elements.size(), 1U);
    EXPECT_EQ(tables.elements[0].type, " C3D4 ");
    EXPECT_EQ(tables.elements[0].elset, "");
    EXPECT_EQ(tables.elements[0].geometryType, 2);
    EXPECT_THAT(tables.elements[0].ids, ElementsAre(7, 8));
    EXPECT_THAT(tables.elements[0].nodes, ElementsAre(1, 1, 2, 3, 8, 2, 8, 8));
}

TEST(NaiveImport, SetsSurfacesLoadsAndShellSections) {
    const NaiveImport tables = importOf(
        "*ELSET, ELSET=A, GENERATE\n1, 10\n*ELSET, ELSET=B C, INTERNAL\n1\n*ELSET, ELSET=B C\na, "
        "1\n"
        "*SURFACE, NAME=Top side, TYPE=ELEMENT\na s1 x\n\nb\n*DLOAD\na, p1, 2\n5, P2\n"
        "*SHELL SECTION, MATERIAL=M, ELSET=E\n1.5, 3\nx\n*SURFACE\n*NODE\n1, 2, 3, 4\n");
    ASSERT_EQ(tables.elsets.size(), 2U);
    EXPECT_EQ(tables.elsets[0].parameter, "GENERATE");
    EXPECT_EQ(tables.elsets[0].genEnd, 10);
    EXPECT_EQ(tables.elsets[0].genStep, 1);
    EXPECT_EQ(tables.elsets[1].name, "B");
    EXPECT_THAT(tables.elsets[1].members, ElementsAre("A", "1"));
    ASSERT_EQ(tables.surfaces.size(), 1U);
    EXPECT_EQ(tables.surfaces[0].name, "TOP SIDE");
    EXPECT_THAT(tables.surfaces[0].items, ElementsAre("A", "B"));
    EXPECT_THAT(tables.surfaces[0].faces, ElementsAre("S1", ""));
    ASSERT_EQ(tables.dloads.size(), 1U);
    EXPECT_THAT(tables.dloads[0].elemIDs, ElementsAre(0, 5));
    EXPECT_THAT(tables.dloads[0].faceIdx, ElementsAre("p1", "P2"));
    EXPECT_THAT(tables.dloads[0].values, ElementsAre(2.0, 2.0));
    ASSERT_EQ(tables.shells.size(), 1U);
    EXPECT_EQ(tables.shells[0].thickness, 1.5);
    EXPECT_TRUE(tables.nodeIds.empty());
}

TEST(NaiveImport, SaysWhatItDoes) {
    EXPECT_EQ(importOf("*ELEMENT, TYPE=S3, ELSET=A\n*SURFACE\n*NODE\n").printed,
              "debug folder state = -1\n"
              "============= Loop 1 ==============\n"
              "Reading Element Section...\n"
              "  element type = S3\n"
              "  geometry type = 1\n"
              "  node num per element = 3\n"
              "  elset name = A\n"
              "Reading Surface Section...\n"
              "------- Summary ------\n"
              "Node Section num = 0\n"
              "Elem Section num = 1\n"
              "  Elem Block [0] = 0\n"
              "Shell Section num = 0\n"
              "Surface Section num = 0\n"
              "Dload Section num = 0\n"
              "Elset Section num = 0\n"
              "============= Loop 2 ==============\n"
              "Reading Element Section...\n"
              "  element type = S3\n"
              "  geometry type = 1\n"
              "  node num per element = 3\n"
              "  elset name = A\n"
              "Reading Surface Section...\n");
}

}  // namespace
}  // namespace kvocaeio::test
