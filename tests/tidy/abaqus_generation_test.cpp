/// Nodes and elements that statements generate from others, with values worked out by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "tidy/tidied.h"

namespace kvocaeio::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

// The nodes that a deck has beside those of `given`, whose lines come out as they are.
std::string generatedNodes(const std::string& given, std::string_view statements) {
    const Tidied deck = tidyText(given + std::string(statements), CKVODeckTidy::kAbaqus);
    EXPECT_TRUE(deck.isDone);
    EXPECT_THAT(deck.others, IsEmpty());
    const std::string::size_type at = deck.text.find("*NODE\n") + 6;
    const std::string nodes = deck.text.substr(at);
    const std::string head = given.substr(given.find('\n') + 1);
    return nodes.starts_with(head) ? nodes.substr(head.size()) : deck.text;
}

TEST(TidyAbaqusGeneration, ALineOfNodesWithoutAnIncrementCountsByOne) {
    EXPECT_EQ(generatedNodes("*NODE\n1, 0, 0, 0\n4, 3, 6, 9\n", "*NGEN\n1, 4\n"),
              "2, 1, 2, 3\n3, 2, 4, 6\n");
}

TEST(TidyAbaqusGeneration, ALineOfNodesMayCountDownwards) {
    EXPECT_EQ(generatedNodes("*NODE\n20, 0, 0, 0\n10, 2, 0, 0\n", "*NGEN\n20, 10, 5\n"),
              "15, 1, 0, 0\n");
    EXPECT_EQ(generatedNodes("*NODE\n20, 0, 0, 0\n10, 2, 0, 0\n", "*NGEN\n20, 10, -5\n"),
              "15, 1, 0, 0\n");
}

TEST(TidyAbaqusGeneration, AnArcGoesAroundItsNormalByMoreThanAHalfTurn) {
    // From (1, 0) to (0, 1) clockwise: three quarters of a circle in three steps.
    EXPECT_EQ(generatedNodes("*NODE\n1, 1, 0, 0\n4, 0, 1, 0\n",
                             "*NGEN, LINE=C\n1, 4, 1, , 0, 0, 0, 0, 0, -1\n"),
              "2, 0, -1, 0\n3, -1, 0, 0\n");
}

TEST(TidyAbaqusGeneration, TheCentreOfAnArcIsANodeAndTheNormalFollowsIt) {
    EXPECT_EQ(generatedNodes("*NODE\n1, 3, 0, 0\n3, -1, 0, 0\n9, 1, 0, 0\n",
                             "*NGEN, LINE=C\n1, 3, 1, 9, , , , 0, 0, 1\n"),
              "2, 1, 2, 0\n");
}

TEST(TidyAbaqusGeneration, TheCentreOfAnArcIsInCylindricalCoordinates) {
    // Centre at radius 2 and angle 90 degrees.
    EXPECT_EQ(generatedNodes("*NODE\n1, 1, 2, 0\n3, -1, 2, 0\n",
                             "*NGEN, LINE=C, SYSTEM=C\n1, 3, 1, , 2, 90, 0, 0, 0, 1\n"),
              "2, 0, 3, 0\n");
}

TEST(TidyAbaqusGeneration, GeneratedNodesArePutIntoASetWithTheirEnds) {
    EXPECT_EQ(generatedNodes("*NODE\n1, 0, 0, 0\n3, 2, 0, 0\n",
                             "*NGEN, NSET=A\n1, 3\n*NCOPY, OLD SET=A, CHANGE NUMBER=10, SHIFT\n"
                             "0, 5, 0\n\n"),
              "2, 1, 0, 0\n11, 0, 5, 0\n12, 1, 5, 0\n13, 2, 5, 0\n");
}

TEST(TidyAbaqusGeneration, FillingCloserToOneEnd) {
    const std::string ends = "*NODE\n1, 0, 0, 0\n5, 9, 0, 0\n";
    // Lengths 4, 2, 1: twice that of the next.
    EXPECT_EQ(generatedNodes("*NODE\n1, 0, 0, 0\n4, 7, 0, 0\n", "*NFILL, BIAS=2.\n1, 4, 3, 1\n"),
              "2, 4, 0, 0\n3, 6, 0, 0\n");
    // Lengths 1.5, 1.5, 3, 3: every second one is twice the one before.
    EXPECT_EQ(generatedNodes(ends, "*NFILL, BIAS=0.5, TWO STEP\n1, 5, 4, 1\n"),
              "2, 1.5, 0, 0\n3, 3, 0, 0\n4, 6, 0, 0\n");
}

TEST(TidyAbaqusGeneration, QuarterPointsAtASingularEnd) {
    const std::string ends = "*NODE\n1, 0, 0, 0\n5, 8, 0, 0\n";
    EXPECT_EQ(generatedNodes(ends, "*NFILL, SINGULAR=1\n1, 5, 4, 1\n"),
              "2, 1, 0, 0\n3, 4, 0, 0\n4, 6, 0, 0\n");
    EXPECT_EQ(generatedNodes(ends, "*NFILL, SINGULAR=2\n1, 5, 4, 1\n"),
              "2, 2, 0, 0\n3, 4, 0, 0\n4, 7, 0, 0\n");
}

TEST(TidyAbaqusGeneration, CopiesAreMovedAndTurnedAgainAndAgain) {
    EXPECT_EQ(generatedNodes("*NODE, NSET=A\n1, 1, 0, 0\n",
                             "*NCOPY, OLD SET=A, CHANGE NUMBER=10, SHIFT, MULTIPLE=3\n0, 0, 2\n"
                             "0, 0, 0, 0, 0, 1, 90\n"),
              "11, 0, 1, 2\n21, -1, 0, 4\n31, 0, -1, 6\n");
}

TEST(TidyAbaqusGeneration, CopiesAreReflectedInALineAPlaneOrAPoint) {
    const std::string node = "*NODE, NSET=A\n1, 1, 2, 3\n";
    EXPECT_EQ(generatedNodes(node,
                             "*NCOPY, OLD SET=A, CHANGE NUMBER=1, REFLECT=LINE\n"
                             "0, 0, 0, 0, 0, 1\n"),
              "2, -1, -2, 3\n");
    EXPECT_EQ(generatedNodes(node,
                             "*NCOPY, OLD SET=A, CHANGE NUMBER=1, REFLECT=MIRROR\n"
                             "0, 0, 0, 1, 0, 0\n0, 1, 0\n"),
              "2, 1, 2, -3\n");
    EXPECT_EQ(generatedNodes(node, "*NCOPY, OLD SET=A, CHANGE NUMBER=1, REFLECT=POINT\n1, 1, 1\n"),
              "2, 1, 0, -1\n");
}

TEST(TidyAbaqusGeneration, CopiesAreAsFarBehindTheirNodeAsThePoleIsBeforeIt) {
    const std::string nodes = "*NODE\n1, 1, 2, 3\n2, 0, 1, 0\n";
    EXPECT_EQ(generatedNodes(nodes, "*NCOPY, OLD SET=1, CHANGE NUMBER=10, POLE\n2\n"),
              "11, 2, 3, 6\n");
    EXPECT_EQ(generatedNodes(nodes, "*NCOPY, OLD SET=1, CHANGE NUMBER=10, POLE\n, 1, 1, 1\n"),
              "11, 1, 3, 5\n");
}

TEST(TidyAbaqusGeneration, UnsortedSetsKeepTheOrderOfTheirNodes) {
    const std::string nodes = "*NODE\n1, 0, 0, 0\n2, 0, 4, 0\n11, 2, 0, 0\n12, 2, 4, 0\n";
    const std::string ends = "*NSET, NSET=A\n1, 2\n";
    EXPECT_EQ(generatedNodes(nodes, ends + "*NSET, NSET=B\n12, 11\n*NFILL\nA, B, 2, 20\n"),
              "21, 1, 0, 0\n22, 1, 4, 0\n");
    EXPECT_EQ(
        generatedNodes(nodes, ends + "*NSET, NSET=B, UNSORTED\n12, 11\n*NFILL\nA, B, 2, 20\n"),
        "21, 1, 2, 0\n22, 1, 2, 0\n");
}

TEST(TidyAbaqusGeneration, ElementsInRowsAndLayers) {
    const Tidied deck = tidyText(
        "*ELEMENT, TYPE=C3D8\n1, 1, 2, 12, 11, 101, 102, 112, 111\n"
        "*ELGEN, ELSET=ALL\n1, 2, 1, 1, 1, 10, 10, 2, 100, 100\n",
        CKVODeckTidy::kAbaqus);
    EXPECT_EQ(deck.text,
              "** Tidy deck\n*NODE\n*ELEMENT, TYPE=C3D8\n1, 1, 2, 12, 11, 101, 102, 112, 111\n"
              "*ELEMENT, TYPE=C3D8, ELSET=ALL\n2, 2, 3, 13, 12, 102, 103, 113, 112\n"
              "101, 101, 102, 112, 111, 201, 202, 212, 211\n"
              "102, 102, 103, 113, 112, 202, 203, 213, 212\n");
}

TEST(TidyAbaqusGeneration, CopiesOfElementsAreASet) {
    const Tidied deck = tidyText(
        "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n"
        "*ELCOPY, OLD SET=A, ELEMENT SHIFT=10, SHIFT NODES=100, NEW SET=B\n"
        "*SURFACE, NAME=S\nB, S1\n",
        CKVODeckTidy::kAbaqus);
    EXPECT_EQ(deck.text,
              "** Tidy deck\n*NODE\n*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=C3D4, ELSET=B\n11, 101, 102, 103, 104\n"
              "*ELSET, ELSET=B\n11\n*SURFACE, TYPE=ELEMENT, NAME=S\nB, S1\n");
}

TEST(TidyAbaqusGeneration, StatementsThatCannotBeFollowedAreErrorsAtTheirPlace) {
    const auto othersOf = [](std::string_view deck) {
        return tidyText(deck, CKVODeckTidy::kAbaqus).others;
    };
    EXPECT_THAT(othersOf("*NODE\n1, 0\n3, 1\n*NGEN, LINE=X\n1, 3\n"),
                ElementsAre("4:1 tidy.abaqus-statement-unread"));
    EXPECT_THAT(othersOf("*NODE, NSET=A\n1, 0\n  *NFILL, BIAS=-1\nA, A, 2, 10\n"),
                ElementsAre("3:3 tidy.abaqus-statement-unread"));
    EXPECT_THAT(othersOf("*NODE, NSET=A\n1, 0\n*NCOPY, OLD SET=A, CHANGE NUMBER=x, SHIFT\n1\n"),
                ElementsAre("3:1 tidy.abaqus-generation-invalid"));
    EXPECT_THAT(othersOf("*NODE\n1, 0\n*SYMMETRIC MODEL GENERATION, REVOLVE\n1\n"),
                ElementsAre("3:1 tidy.abaqus-statement-unread"));
    EXPECT_THAT(othersOf("*NODE\n1, 0\n999, 1\n*NFILL, BIAS=0.001\n1, 999, 998\n"),
                Contains("5:1 tidy.abaqus-generation-invalid"));
    EXPECT_THAT(othersOf("*NODE\n1, 0\n*SYSTEM\n1, x\n*NODE\n"),
                ElementsAre("3:1 tidy.abaqus-generation-invalid"));
}

}  // namespace
}  // namespace kvocaeio::test
