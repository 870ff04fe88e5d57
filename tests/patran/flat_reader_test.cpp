/// What `CPatranReader` makes of each packet.
#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "patran/neutral_file.h"
#include "support/captured_output.h"
#include "support/files.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Slots = std::array<int, 8>;

TEST(PatranReader, NodesStandInFileOrderWhateverTheirIds) {
    const FlatMesh mesh(summary(3, 0, 6) + node(30, 1, 2, 3) + node(10, -4, 5.5, 1e10) +
                        node(20, 7, 8, 9) + endOfFile());
    EXPECT_TRUE(mesh.result);
    EXPECT_EQ(mesh.nodeCount, 3);
    EXPECT_EQ(mesh.elemCount, 0);
    EXPECT_EQ(mesh.propertyCount, 6);
    EXPECT_THAT(mesh.nodes, ElementsAre(Point{1, 2, 3}, Point{-4, 5.5F, 1e10F}, Point{7, 8, 9}));
    EXPECT_EQ(mesh.printed, "");
}

TEST(PatranReader, CoordinatesAreSixteenColumnsEachNarrowedToFloat) {
    const FlatMesh mesh(
        summary(4, 0) + header(1, 1, 0, 2) +
        " 1.000000000E+00-2.500000000E+00 3.333333333E-01\nx\n" + header(1, 2, 0, 2) +
        "              .1        16777217            0.1x\nx\n" + header(1, 3, 0, 2) +
        "abc                          2,5         1.5D+01\nx\n" + header(1, 4, 0, 2) + "1.25\nx\n" +
        endOfFile());
    EXPECT_THAT(mesh.nodes, ElementsAre(Point{1, -2.5F, 0.3333333333F}, Point{0.1F, 16777216, 0.1F},
                                        Point{0, 2, 1.5F}, Point{1.25F, 0, 0}));
}

TEST(PatranReader, EightNodesPerElementAndShapesFiltered) {
    const FlatMesh mesh(summary(10, 11) + tenNodes() + element(1, 2, 1, {10, 9}) +
                        element(2, 3, 2, {4, 6, 8}) + element(3, 4, 3, {1, 2, 3, 4}) +
                        element(4, 5, -4, {5, 6, 7, 8}) + element(5, 6, 5, {1, 3, 5, 7, 9}) +
                        element(6, 7, 6, {6, 5, 4, 3, 2, 1}) +
                        element(7, 8, 99999999, {8, 7, 6, 5, 4, 3, 2, 1}) + element(8, 1, 0, {2}) +
                        element(9, 9, 0, {2, 3}) + element(10, 0, 0, {3, 2}) +
                        element(11, -2, 0, {3, 4}) + endOfFile());
    EXPECT_THAT(mesh.types(), ElementsAre(2, 3, 4, 5, 0, 7, 8, 0, 0, 0, 0));
    EXPECT_THAT(mesh.properties(), ElementsAre(1, 2, 3, -4, 5, 6, 99999999, 0, 0, 0, 0));
    EXPECT_THAT(mesh.slots(),
                ElementsAre(Slots{9, 8, 0, 0, 0, 0, 0, 0}, Slots{3, 5, 7, 0, 0, 0, 0, 0},
                            Slots{0, 1, 2, 3, 0, 0, 0, 0}, Slots{4, 5, 6, 7, 0, 0, 0, 0},
                            Slots{0, 2, 4, 6, 8, 0, 0, 0}, Slots{5, 4, 3, 2, 1, 0, 0, 0},
                            Slots{7, 6, 5, 4, 3, 2, 1, 0}, Slots{1, 0, 0, 0, 0, 0, 0, 0},
                            Slots{1, 2, 0, 0, 0, 0, 0, 0}, Slots{2, 1, 0, 0, 0, 0, 0, 0},
                            Slots{2, 3, 0, 0, 0, 0, 0, 0}));
}

TEST(PatranReader, SlotsWithoutANodeTakeTheNodeOfId0) {
    const FlatMesh mesh(summary(3, 3) + node(5, 0, 0, 0) + node(6, 0, 0, 0) + node(0, 0, 0, 0) +
                        element(1, 4, 0, {5, 6, 5, 6}) + element(2, 2, 0, {5, 0}) + endOfFile());
    // The third element is counted, but not in the file.
    EXPECT_THAT(mesh.slots(),
                ElementsAre(Slots{0, 1, 0, 1, 2, 2, 2, 2}, Slots{0, 2, 2, 2, 2, 2, 2, 2},
                            Slots{2, 2, 2, 2, 2, 2, 2, 2}));
    EXPECT_THAT(mesh.types(), ElementsAre(4, 2, 0));
}

TEST(PatranReader, IdsOutsideTheMapGiveIndex0EvenWithANodeOfId0) {
    const FlatMesh mesh(summary(3, 1) + node(5, 0, 0, 0) + node(0, 0, 0, 0) + node(-2, 1, 0, 0) +
                        element(1, 8, 0, {6, -2, -1, 99999999, 4, 5, 0, -9999999}) + endOfFile());
    EXPECT_THAT(mesh.nodes, ElementsAre(Point{0, 0, 0}, Point{0, 0, 0}, Point{1, 0, 0}));
    EXPECT_THAT(mesh.slots(), ElementsAre(Slots{0, 0, 0, 0, 0, 0, 1, 0}));
}

TEST(PatranReader, IdsWithHoles) {
    const FlatMesh mesh(summary(2, 1) + node(5, 0, 0, 0) + node(9, 0, 0, 0) +
                        element(1, 2, 0, {5, 9}) + endOfFile());
    EXPECT_THAT(mesh.slots(), ElementsAre(Slots{0, 1, 0, 0, 0, 0, 0, 0}));
}

TEST(PatranReader, CountsAreTheSummarysWhateverTheFileHolds) {
    const FlatMesh mesh(summary(3, 2, 4) + node(1, 1, 2, 3) + endOfFile());
    EXPECT_EQ(mesh.nodeCount, 3);
    EXPECT_EQ(mesh.elemCount, 2);
    EXPECT_EQ(mesh.propertyCount, 4);
    EXPECT_THAT(mesh.nodes, ElementsAre(Point{1, 2, 3}, Point{0, 0, 0}, Point{0, 0, 0}));
    EXPECT_THAT(mesh.elements, ElementsAre(FlatElement{0, 0, {}}, FlatElement{0, 0, {}}));
}

TEST(PatranReader, NegativeCountsStoreNothing) {
    const FlatMesh mesh(summary(-3, -1, -7) + node(1, 1, 2, 3) + element(1, 2, 0, {1, 1}) +
                        endOfFile());
    EXPECT_TRUE(mesh.result);
    EXPECT_EQ(mesh.nodeCount, -3);
    EXPECT_EQ(mesh.elemCount, -1);
    EXPECT_EQ(mesh.propertyCount, -7);
    EXPECT_THAT(mesh.nodes, IsEmpty());
    EXPECT_THAT(mesh.elements, IsEmpty());
}

TEST(PatranReader, NodesAndElementsBeyondTheSummaryAreNotStored) {
    const FlatMesh mesh(summary(2, 1) + node(1, 1, 0, 0) + node(2, 2, 0, 0) + node(3, 3, 0, 0) +
                        element(1, 2, 0, {2, 1}) + element(2, 2, 0, {1, 2}) + endOfFile());
    EXPECT_THAT(mesh.nodes, ElementsAre(Point{1, 0, 0}, Point{2, 0, 0}));
    EXPECT_THAT(mesh.slots(), ElementsAre(Slots{1, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(PatranReader, CoordinatesOfANodeTooManyAreTakenForAHeader) {
    // Its first card begins with 99, which ends the file before the element.
    const std::string tooMany = header(1, 2, 0, 2) + "99.0\n" + "x\n";
    EXPECT_THAT(FlatMesh(summary(1, 1) + node(1, 0, 0, 0) + tooMany + element(1, 2, 7, {1, 1}) +
                         endOfFile())
                    .properties(),
                ElementsAre(0));
    EXPECT_THAT(FlatMesh(summary(2, 1) + node(1, 0, 0, 0) + tooMany + element(1, 2, 7, {1, 1}) +
                         endOfFile())
                    .properties(),
                ElementsAre(7));
}

TEST(PatranReader, NothingBeforeTheSummaryIsStored) {
    const FlatMesh mesh(node(1, 1, 0, 0) + element(1, 2, 0, {1, 1}) + summary(2, 1) +
                        node(2, 2, 0, 0) + node(3, 3, 0, 0) + element(2, 2, 0, {3, 2}) +
                        endOfFile());
    EXPECT_THAT(mesh.nodes, ElementsAre(Point{2, 0, 0}, Point{3, 0, 0}));
    EXPECT_THAT(mesh.slots(), ElementsAre(Slots{1, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(PatranReader, WithoutASummaryTheCountsAre0) {
    const FlatMesh mesh(node(1, 1, 0, 0) + element(1, 2, 0, {1, 1}) + endOfFile());
    EXPECT_TRUE(mesh.result);
    EXPECT_EQ(mesh.nodeCount, 0);
    EXPECT_EQ(mesh.elemCount, 0);
    EXPECT_EQ(mesh.propertyCount, 0);
    EXPECT_EQ(mesh.printed, "");
}

TEST(PatranReader, ASecondSummaryDiscardsTheDataAndCountsOn) {
    const FlatMesh mesh(summary(2, 1) + node(1, 1, 0, 0) + node(2, 2, 0, 0) +
                        element(1, 2, 5, {2, 1}) + summary(4, 3, 9) + node(3, 3, 0, 0) +
                        element(2, 3, 6, {1, 3, 2}) + endOfFile());
    EXPECT_EQ(mesh.propertyCount, 9);
    EXPECT_THAT(mesh.nodes,
                ElementsAre(Point{0, 0, 0}, Point{0, 0, 0}, Point{3, 0, 0}, Point{0, 0, 0}));
    // The id map knows the nodes that were discarded.
    EXPECT_THAT(mesh.elements,
                ElementsAre(FlatElement{0, 0, {}}, FlatElement{3, 6, {0, 2, 1, 0, 0, 0, 0, 0}},
                            FlatElement{0, 0, {}}));
}

TEST(PatranReader, ASecondSummaryOfFewerEndsTheStoring) {
    const FlatMesh mesh(summary(3, 2) + node(1, 1, 0, 0) + node(2, 2, 0, 0) + summary(1, 0) +
                        node(3, 3, 0, 0) + endOfFile());
    EXPECT_THAT(mesh.nodes, ElementsAre(Point{0, 0, 0}));
}

TEST(PatranReader, AShortSummaryCountsNothing) {
    const FlatMesh mesh(header(9, 0, 0, 0, 2, 1, 0, 3) + "26\ndate\n" + node(1, 1, 0, 0) +
                        endOfFile());
    EXPECT_TRUE(mesh.result);
    EXPECT_EQ(mesh.nodeCount, 0);
    EXPECT_EQ(mesh.elemCount, 0);
    EXPECT_EQ(mesh.propertyCount, 0);
}

TEST(PatranReader, ABlankLineBehindTheSummaryCountsNothing) {
    const FlatMesh mesh(summary(2, 1, 3) + "\n" + "the data card\n" + endOfFile());
    EXPECT_EQ(mesh.nodeCount, 0);
    EXPECT_EQ(mesh.elemCount, 0);
    EXPECT_EQ(mesh.propertyCount, 0);
    EXPECT_EQ(mesh.printed, "");
    // The repeated summary cleared its packet type as well: the second blank line is no packet.
    EXPECT_EQ(
        FlatMesh(summary(2, 1, 3) + "\ncard\n\n" + summary(1, 0, 5) + endOfFile()).propertyCount,
        5);
}

TEST(PatranReader, AnIdThatTheFirstPassDidNotCountEntersNoMap) {
    // The first pass believes the element's four cards, and so misses the second summary, which has
    // room for the node of id 9.
    const FlatMesh mesh(summary(1, 1) + node(1, 1, 0, 0) + header(2, 1, 2, 4) +
                        integers({2, 0, 0}) + integers({1, 1}) + summary(2, 2) + node(9, 2, 0, 0) +
                        element(2, 2, 5, {9, 1}) + endOfFile());
    EXPECT_THAT(mesh.nodes, ElementsAre(Point{0, 0, 0}, Point{2, 0, 0}));
    EXPECT_THAT(mesh.elements, ElementsAre(FlatElement{0, 0, {}}, FlatElement{2, 5, {}}));
}

TEST(PatranReader, PropertiesAreReadAndDropped) {
    const FlatMesh mesh(summary(1, 0, 2) + property(1, 2, {2, 1}) + header(4, 2, 0, 1, 2) +
                        " 1       7       0       2\n" + node(1, 4, 5, 6) + endOfFile());
    EXPECT_THAT(mesh.nodes, ElementsAre(Point{4, 5, 6}));
    EXPECT_EQ(mesh.propertyCount, 2);
    EXPECT_EQ(mesh.printed, "");
}

TEST(PatranReader, PropertiesBeyondTheSummaryLeaveTheirCards) {
    const FlatMesh mesh(summary(2, 0, 0) + header(4, 2, 0, 1, 2) + " 1       7       0       2\n" +
                        reals({1, 2, 3}) + "x\n" + node(1, 4, 5, 6) + endOfFile());
    EXPECT_THAT(mesh.nodes, ElementsAre(Point{1, 2, 3}, Point{4, 5, 6}));
}

TEST(PatranReader, SaysWhereEitherPassMeetsTheEnd) {
    EXPECT_EQ(FlatMesh("").printed, kMetEndTwice);
    EXPECT_EQ(FlatMesh(summary(1, 0) + node(1, 0, 0, 0)).printed, kMetEndTwice);
    EXPECT_EQ(FlatMesh(summary(1, 0) + node(1, 0, 0, 0) + "99").printed, "");
    EXPECT_EQ(FlatMesh(summary(1, 0) + "! 99\n").printed, kMetEndTwice);
    // The first pass believes the element's count of cards, the second one reads two.
    EXPECT_EQ(FlatMesh(summary(0, 1) + header(2, 1, 2, 5) + "x\nx\n" + endOfFile()).printed,
              kMetEnd);
    // The second pass takes the end for the property's card.
    EXPECT_EQ(FlatMesh(summary(0, 0, 1) + header(4, 1, 0, 0) + "99\n ! \n").printed, kMetEnd);
}

TEST(PatranReader, SaysWhichFileIsMissing) {
    TempFolder folder;
    const std::string path = folder.file("no 100% such.pat");
    CPatranReader reader;
    CapturedOutput output;
    EXPECT_FALSE(reader.ImportFromPatFile(path.c_str()));
    EXPECT_EQ(output.text(), "File Not Found : " + path + "\n");
    EXPECT_EQ(reader.GetNodeCout(), 0);
}

}  // namespace
}  // namespace kvocaeio::test
