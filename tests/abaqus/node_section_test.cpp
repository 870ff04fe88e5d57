/// Nodes: how a data line of a `*NODE` block becomes a row.
#include <climits>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "abaqus/imported_deck.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The one node that `line` gives.
Node nodeOf(const std::string& line) {
    const std::vector<Node> nodes = ImportedDeck("*NODE\n" + line + "\n").nodes();
    return nodes.size() == 1 ? nodes[0] : Node{-999, 0, 0, 0};
}

TEST(NodeSection, FourFields) {
    EXPECT_EQ(nodeOf("12, 1.5, -2.25, 3.0"), (Node{12, 1.5, -2.25, 3.0}));
}

TEST(NodeSection, BlanksAroundTheCommasAreFree) {
    EXPECT_EQ(nodeOf("   12  ,1.5   ,-2.25,   3.0   "), (Node{12, 1.5, -2.25, 3.0}));
    EXPECT_EQ(nodeOf("12,1.5,-2.25,3"), (Node{12, 1.5, -2.25, 3.0}));
    EXPECT_EQ(nodeOf("\t12\t,\t1.5,-2.25,3"), (Node{12, 1.5, -2.25, 3.0}));
}

TEST(NodeSection, MissingFieldsAreZero) {
    EXPECT_EQ(nodeOf("12, 1.5, -2.25"), (Node{12, 1.5, -2.25, 0}));
    EXPECT_EQ(nodeOf("12, 1.5, -2.25,"), (Node{12, 1.5, -2.25, 0}));
    EXPECT_EQ(nodeOf("12"), (Node{12, 0, 0, 0}));
    EXPECT_EQ(nodeOf("12,"), (Node{12, 0, 0, 0}));
}

TEST(NodeSection, WithoutCommasOnlyTheOidIsRead) {
    EXPECT_EQ(nodeOf("12 1.5 -2.25 3.0"), (Node{12, 0, 0, 0}));
}

TEST(NodeSection, ParsingStopsAtTheFirstFieldThatFails) {
    EXPECT_EQ(nodeOf("12, x, 2, 3"), (Node{12, 0, 0, 0}));
    EXPECT_EQ(nodeOf("12, 1.5, , 3"), (Node{12, 1.5, 0, 0}));
    EXPECT_EQ(nodeOf("12, 1.5; 2, 3"), (Node{12, 1.5, 0, 0}));
    EXPECT_EQ(nodeOf("1.5, 2, 3, 4"), (Node{1, 0, 0, 0}));
    EXPECT_EQ(nodeOf("x, 1, 2, 3"), (Node{0, 0, 0, 0}));
    EXPECT_EQ(nodeOf(", 1, 2, 3"), (Node{0, 0, 0, 0}));
}

TEST(NodeSection, FieldsBehindTheFourthAreIgnored) {
    EXPECT_EQ(nodeOf("12, 1.5, -2.25, 3.0, 8, 9"), (Node{12, 1.5, -2.25, 3.0}));
}

TEST(NodeSection, RealNumbersInAllTheirForms) {
    EXPECT_EQ(nodeOf("1, 1e3, 1.5E-2, .5"), (Node{1, 1000, 0.015, 0.5}));
    EXPECT_EQ(nodeOf("1, +2., -.25e+1, 1.e2"), (Node{1, 2, -2.5, 100}));
    EXPECT_EQ(nodeOf("1, 1e400, 0.1, 1e-400"), (Node{1, HUGE_VAL, 0.1, 0}));
}

TEST(NodeSection, AnExponentWithoutDigitsIsConsumed) {
    EXPECT_EQ(nodeOf("1, 4e, 5e+, 6E-"), (Node{1, 4, 5, 6}));
}

TEST(NodeSection, AFortranExponentEndsTheNumber) {
    EXPECT_EQ(nodeOf("1, 4d3, 5, 6"), (Node{1, 4, 0, 0}));
}

TEST(NodeSection, HexadecimalAndInfiniteReals) {
    EXPECT_EQ(nodeOf("1, 0x10, 0x1p-1, inf"),
              (Node{1, 16, 0.5, std::numeric_limits<double>::infinity()}));
    EXPECT_TRUE(std::isnan(nodeOf("1, nan, 2, 3").x));
    EXPECT_EQ(nodeOf("1, nan, 2, 3").z, 3);
}

TEST(NodeSection, AnOidOutOfRangeSaturates) {
    EXPECT_EQ(nodeOf("2147483647, 1, 2, 3").id, INT_MAX);
    EXPECT_EQ(nodeOf("2147483648, 1, 2, 3"), (Node{2147483647, 1, 2, 3}));
    EXPECT_EQ(nodeOf("99999999999999999999, 1, 2, 3"), (Node{2147483647, 1, 2, 3}));
    EXPECT_EQ(nodeOf("-2147483648, 1, 2, 3").id, INT_MIN);
    EXPECT_EQ(nodeOf("-99999999999999999999, 1, 2, 3"), (Node{INT_MIN, 1, 2, 3}));
    EXPECT_EQ(nodeOf("+7, 1, 2, 3").id, 7);
    EXPECT_EQ(nodeOf("-7, 1, 2, 3").id, -7);
    EXPECT_EQ(nodeOf("0x10, 1, 2, 3"), (Node{0, 0, 0, 0}));
}

TEST(NodeSection, ABlankLineIsANode) {
    ImportedDeck deck("*NODE\n1, 1, 2, 3\n\n2, 4, 5, 6\n");
    EXPECT_THAT(deck.nodes(), ElementsAre(Node{1, 1, 2, 3}, Node{0, 0, 0, 0}, Node{2, 4, 5, 6}));
    EXPECT_THAT(deck.printed, testing::HasSubstr("  Node Block [0] = 3\n"));
}

TEST(NodeSection, ACommentIsNoNode) {
    EXPECT_THAT(ImportedDeck("*NODE\n** a\n1, 1, 2, 3\n** 9, 9, 9, 9\n**\n2, 4, 5, 6\n").nodes(),
                ElementsAre(Node{1, 1, 2, 3}, Node{2, 4, 5, 6}));
}

TEST(NodeSection, AnIndentedCommentIsANode) {
    EXPECT_THAT(ImportedDeck("*NODE\n ** a\n").nodes(), ElementsAre(Node{0, 0, 0, 0}));
}

TEST(NodeSection, ParametersAreIgnored) {
    EXPECT_THAT(ImportedDeck("*NODE, NSET=A, SYSTEM=C, INTERNAL\n1, 1, 2, 3\n").nodes(),
                ElementsAre(Node{1, 1, 2, 3}));
}

TEST(NodeSection, BlocksFormOneTable) {
    ImportedDeck deck(
        "*NODE\n5, 1, 2, 3\n4, 4, 5, 6\n"
        "*ELEMENT, TYPE=S3\n"
        "*NODE\n"
        "*NODE\n9, 7, 8, 9\n");
    EXPECT_THAT(deck.nodes(), ElementsAre(Node{5, 1, 2, 3}, Node{4, 4, 5, 6}, Node{9, 7, 8, 9}));
    EXPECT_EQ(deck.reader.GetNodeNum(), 3);
    EXPECT_THAT(printedSummary(deck.printed), testing::StartsWith("Node Section num = 3\n"
                                                                  "  Node Block [0] = 2\n"
                                                                  "  Node Block [1] = 0\n"
                                                                  "  Node Block [2] = 1\n"));
}

TEST(NodeSection, AnOidListedTwiceKeepsBothRows) {
    EXPECT_THAT(ImportedDeck("*NODE\n5, 1, 2, 3\n5, 4, 5, 6\n").nodes(),
                ElementsAre(Node{5, 1, 2, 3}, Node{5, 4, 5, 6}));
}

TEST(NodeSection, AKeywordAtTheEndOfTheFileIsAnEmptyBlock) {
    ImportedDeck deck("*NODE");
    EXPECT_TRUE(deck.result);
    EXPECT_THAT(deck.nodes(), IsEmpty());
    EXPECT_THAT(deck.printed, testing::HasSubstr("Node Section num = 1\n  Node Block [0] = 0\n"));
}

}  // namespace
}  // namespace kvocaeio::test
