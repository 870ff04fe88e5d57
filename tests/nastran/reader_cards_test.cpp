/// What each card leaves in the arrays, line by line.
#include <gtest/gtest.h>
#include <string>

#include "nastran/deck.h"

namespace kvocaeio::test {
namespace {

NodeRow nodeOf(const std::string& card, int oid) {
    ReadDeck deck(card + "\n" + kTetra);
    EXPECT_TRUE(deck.result) << card;
    return deck.result ? deck.node(oid) : kNoNode;
}

ElementRow elementOf(const std::string& card, int oid) {
    ReadDeck deck(kGrid + card + "\n");
    EXPECT_TRUE(deck.result) << card;
    return deck.result ? deck.element(oid) : kNoElement;
}

// The one section of a deck.
SectionRowOfThree sectionOf(const std::string& card) {
    ReadDeck deck(kGrid + kTetra + card + "\n");
    EXPECT_TRUE(deck.result) << card;
    EXPECT_GE(deck.reader.GetSectionCout(), 1) << card;
    return deck.section(1);
}

constexpr NodeRow kNodeOne{1, 0, 0, 0};

TEST(GridCard, InFixedFields) {
    EXPECT_EQ(nodeOf("GRID           1       0      0.      0.      0.", 1), kNodeOne);
    EXPECT_EQ(nodeOf("GRID    12              1.0     2.0     3.0", 12), (NodeRow{12, 1, 2, 3}));
    EXPECT_EQ(nodeOf("GRID    12              1.5-3   2.0     3.0", 12),
              (NodeRow{12, 0.0015F, 2, 3}));
}

TEST(GridCard, WithFullColumns) {
    EXPECT_EQ(nodeOf("GRID    00000007       0-1.234-5123456.712345678", 7),
              (NodeRow{7, -1.234e-5F, 123456.7F, 12345678.0F}));
    EXPECT_EQ(nodeOf("GRID           7       0   -1.-1   -.5+1   1.5E2", 7),
              // The plus sign leaves eight blanks between "-.5" and "1", which is the next field.
              (NodeRow{7, -0.1F, -0.5F, 1}));
}

TEST(GridCard, WithEmptyFieldsReadsZeros) {
    EXPECT_EQ(nodeOf("GRID           7", 7), (NodeRow{7, 0, 0, 0}));
    EXPECT_EQ(nodeOf("GRID           7                             3.5", 7),
              (NodeRow{7, 0, 0, 3.5F}));
}

TEST(GridCard, InFreeFields) {
    EXPECT_EQ(nodeOf("GRID,1,,0.5,2.,3.", 1), (NodeRow{1, 0.5F, 0, 2}));
    EXPECT_EQ(nodeOf("GRID,1,0,1.5,2.5,3.5", 1), (NodeRow{1, 1, 5, 2.5F}));
}

TEST(GridCard, APlusSignSeparates) {
    // "  1.0E" and eight blanks and "3     2.0     3.0": fields of "3", "2.0", "3.0" follow.
    EXPECT_EQ(nodeOf("GRID           1       0  1.0E+3     2.0     3.0", 1), (NodeRow{1, 1, 3, 2}));
}

TEST(GridCard, WithTabsReadsNoFillers) {
    // The columns go by characters: "GRID|1|0", "|1.|2.|3" and "."; a blank parts the last two.
    EXPECT_EQ(nodeOf("GRID\t1\t0\t1.\t2.\t3.", 1), (NodeRow{1, 1, 2, 3}));
    // The tab's field is passed over: CP is the 1, and the point behind it ends the numbers.
    EXPECT_EQ(nodeOf("GRID           1\t            1.      2.      3.", 1), kNodeOne);
}

TEST(GridCard, InLargeFieldsGoesThroughTheSameColumns) {
    // "GRID*", "1", a filler for CP, two for the empty large field, then 1.5.
    EXPECT_EQ(
        nodeOf("GRID*   1                               1.5             2.5             *A", 1),
        (NodeRow{1, 0, 0, 1.5F}));
    // Here the first half of the OID's field is a filler.
    EXPECT_FALSE(ReadDeck(kTetra + "GRID*                  7               0\n").result);
}

TEST(GridCard, RepeatedOverwrites) {
    EXPECT_EQ(nodeOf("GRID           1       0      1.      2.      3.\n"
                     "GRID           1       0      4.      5.      6.",
                     1),
              (NodeRow{1, 4, 5, 6}));
}

TEST(GridCard, CoordinatesAreNarrowedFromDouble) {
    EXPECT_EQ(nodeOf("GRID           1       016777217 1.00001  1.E-50", 1),
              (NodeRow{1, 16777216.0F, 1.00001F, 0}));
}

TEST(ElementCards, TwoNodes) {
    for (const std::string name : {"CROD    ", "CTUBE   ", "CBAR    ", "CBEAM   "})
        EXPECT_EQ(elementOf(name + "       7       1      11      12      13", 7),
                  (ElementRow{7, 11, 12, 12, 12, 12, 12, 12, 12}))
            << name;
}

TEST(ElementCards, Tetrahedra) {
    EXPECT_EQ(elementOf("CTETRA         7       1      11      12      13      14      15      16\n"
                        "              17      18      19      20",
                        7),
              (ElementRow{7, 11, 12, 13, 14, 14, 14, 14, 14}));
}

TEST(ElementCards, Wedges) {
    EXPECT_EQ(elementOf("CPENTA         7       1      11      12      13      14      15      16\n"
                        "              17",
                        7),
              (ElementRow{7, 11, 12, 13, 14, 15, 16, 16, 16}));
}

TEST(ElementCards, FullFieldsPart) {
    EXPECT_EQ(elementOf("CPENTA  000000071234567812345679123456801234568112345682123456831234568412"
                        "345685",
                        7),
              (ElementRow{7, 12345679, 12345680, 12345681, 12345682, 12345683, 12345684, 12345684,
                          12345684}));
}

TEST(ElementCards, NegativeNumbersAreKept) {
    EXPECT_EQ(elementOf("CBAR           7      -1     -11      12", 7),
              (ElementRow{7, -11, 12, 12, 12, 12, 12, 12, 12}));
}

TEST(ElementCards, ShellsCountAndStayEmpty) {
    for (const std::string name : {"CQUAD4  ", "CQUAD   ", "CTRIA3  ", "CTRIAR  ", "CSHEAR  "}) {
        ReadDeck deck(kGrid + name + "       3       1      11      12      13      14\n");
        ASSERT_TRUE(deck.result) << name;
        EXPECT_EQ(deck.reader.GetElemCout(), 3) << name;
        EXPECT_EQ(deck.element(3), kNoElement) << name;
    }
}

TEST(ElementCards, RepeatedOverwrites) {
    EXPECT_EQ(elementOf("CPENTA         7       1      11      12      13      14      15      16\n"
                        "CBAR           7       1      21      22",
                        7),
              (ElementRow{7, 21, 22, 22, 22, 22, 22, 22, 22}));
}

TEST(PropertyCards, RodsBarsAndBeamsGiveTheEquivalentDiameter) {
    // 2 x sqrt(320 / 3.14159) = 20.19
    for (const std::string name : {"PROD    ", "PBAR    ", "PBEAM   ", "PBARL   ", "PBEAML  "})
        EXPECT_EQ(sectionOf(name + "       1       5    320.     1.0     2.0     3.0"),
                  (SectionRowOfThree{1, 5, 20}))
            << name;
    // 1e14 is 100000000376832 as a float: 11283796.5 by 3.14159, 11283791.6 by the true ratio.
    EXPECT_EQ(sectionOf("PROD           1       5   1.E14"), (SectionRowOfThree{1, 5, 11283796}));
    EXPECT_EQ(sectionOf("PBAR           1       5"), (SectionRowOfThree{1, 5, 0}));
}

TEST(PropertyCards, TubesGiveTwiceTheDiameter) {
    EXPECT_EQ(sectionOf("PTUBE          1       5    6.75     1.0"), (SectionRowOfThree{1, 5, 13}));
}

TEST(PropertyCards, ShellsAndShearPanelsGiveTheThickness) {
    EXPECT_EQ(sectionOf("PSHELL         1       5     2.9"), (SectionRowOfThree{1, 5, 2}));
    EXPECT_EQ(sectionOf("PSHEAR         1       5    -2.9"), (SectionRowOfThree{1, 5, -2}));
}

TEST(PropertyCards, SolidsGiveTheThirdNumber) {
    EXPECT_EQ(sectionOf("PSOLID         1       5       3"), (SectionRowOfThree{1, 5, 3}));
    EXPECT_EQ(sectionOf("PSOLID         1       5"), (SectionRowOfThree{1, 5, 0}));
}

TEST(CardNames, TheFirstOfTheTableWins) {
    // Each line holds a name of the table and, behind its numbers, one that stands before it there.
    EXPECT_EQ(elementOf("CTUBE          7       1      11      12  CROD", 7),
              (ElementRow{7, 11, 12, 12, 12, 12, 12, 12, 12}));
    EXPECT_EQ(elementOf("CPENTA         7       1      11      12      13      14      15      16"
                        "CTETRA",
                        7),
              (ElementRow{7, 11, 12, 13, 14, 14, 14, 14, 14}));
    EXPECT_EQ(elementOf("CTETRA         7       1      11      12      13      14CBAR", 7),
              (ElementRow{7, 11, 12, 12, 12, 12, 12, 12, 12}));
    // As a solid's 320, as a rod's 20.19, as a tube's 640.
    EXPECT_EQ(sectionOf("PSOLID         1       5    320."), (SectionRowOfThree{1, 5, 320}));
    EXPECT_EQ(sectionOf("PSOLID         1       5    320.PTUBE"), (SectionRowOfThree{1, 5, 640}));
    EXPECT_EQ(sectionOf("PTUBE          1       5    320.PROD"), (SectionRowOfThree{1, 5, 20}));
    EXPECT_EQ(sectionOf("PTUBE          1       5    320.PBAR"), (SectionRowOfThree{1, 5, 640}));
}

TEST(CardNames, CountAnywhereInTheText) {
    EXPECT_EQ(nodeOf("X              7       0     1.0     2.0     3.0    GRID", 7),
              (NodeRow{7, 1, 2, 3}));
    EXPECT_EQ(nodeOf("  GRIDS        7       0     1.0     2.0     3.0", 7), (NodeRow{7, 1, 2, 3}));
    EXPECT_FALSE(ReadDeck(kGrid + "X              7       1      11      12     MYCBARS\n").result);
    EXPECT_EQ(elementOf("X              7       1      11      12       MYCBARS", 7),
              (ElementRow{7, 11, 12, 12, 12, 12, 12, 12, 12}));
}

TEST(CardNames, AreFoundInTheTextOfColumns) {
    // A name across the eighth column is cut in two.
    EXPECT_FALSE(ReadDeck(kTetra + "     GRID      7       0     1.0\n").result);
    EXPECT_EQ(nodeOf("    GRID       7       0     1.0     2.0     3.0", 7), (NodeRow{7, 1, 2, 3}));
    // The exponent's "E" completes a name.
    EXPECT_EQ(elementOf("CTUB-3         7       1      11      12", 7),
              (ElementRow{7, 11, 12, 12, 12, 12, 12, 12, 12}));
    EXPECT_EQ(sectionOf("PTUB-3         1       5    6.75"), (SectionRowOfThree{1, 5, 13}));
}

TEST(CardNames, InLowerCaseAreUnknown) {
    EXPECT_FALSE(ReadDeck(kTetra + "grid           1       0      0.      0.      0.\n").result);
    EXPECT_FALSE(
        ReadDeck(kGrid + "ctetra         1       1       1       1       1       1\n").result);
    ReadDeck deck(kGrid + kTetra + "psolid         1       1       1\n");
    EXPECT_EQ(deck.reader.GetSectionCout(), 0);
}

TEST(Comments, AreLinesThatBeginWithADollarSign) {
    ReadDeck deck("$GRID          9       0     1.0     2.0     3.0\n" + kGrid + kTetra +
                  "$TETRA  CTETRA 9       1       1\n$SOLID  PSOLID 1\n");
    ASSERT_TRUE(deck.result);
    EXPECT_EQ(deck.reader.GetNodeCout(), 1);
    EXPECT_EQ(deck.reader.GetElemCout(), 1);
    EXPECT_EQ(deck.reader.GetSectionCout(), 0);
    // Behind a blank the dollar sign is a word like any other.
    EXPECT_EQ(nodeOf(" $GRID         9       0     1.0     2.0     3.0", 9), (NodeRow{9, 1, 2, 3}));
}

// Numbers that do not scan, and all behind them, keep what stands in their places.
TEST(StaleNumbers, OfTheCardBefore) {
    EXPECT_EQ(nodeOf("GRID           1       0     1.0     2.0     3.0\n"
                     "GRID           2       0     4.0       x     6.0",
                     2),
              (NodeRow{2, 4, 2, 3}));
    EXPECT_EQ(elementOf("CTETRA         8       1      11      12      13      14\n"
                        "CBAR           7       1      21       x",
                        7),
              (ElementRow{7, 21, 12, 12, 12, 12, 12, 12, 12}));
}

TEST(StaleNumbers, AreZeroAtFirst) {
    EXPECT_EQ(nodeOf("GRID           2       0     4.0       x     6.0", 2), (NodeRow{2, 4, 0, 0}));
    ReadDeck deck("CBAR           7       x\n" + kGrid);
    ASSERT_TRUE(deck.result);
    EXPECT_EQ(deck.element(7), (ElementRow{7, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(StaleNumbers, OfAnyKindOfCard) {
    // The node's OID and CP stand where the bar finds neither of its own.
    ReadDeck deck(
        "CTETRA         5       1      11      12      13      14\n"
        "GRID           3       9     1.0     2.0     3.0\n"
        "CBAR           x\n");
    ASSERT_TRUE(deck.result);
    EXPECT_EQ(deck.element(3), (ElementRow{3, 11, 12, 12, 12, 12, 12, 12, 12}));
    EXPECT_EQ(deck.element(5), (ElementRow{5, 11, 12, 13, 14, 14, 14, 14, 14}));
}

TEST(StaleNumbers, OfAPropertyCardAreItsValue) {
    // 2 x sqrt(4 / 3.14159) = 2.257, and of that again: 1.695; 1.695 twice; 3.39 as it is.
    ReadDeck deck(kGrid + kTetra +
                  "PROD           1       1      4.\nPBAR           2       1       x\n"
                  "PTUBE          3       1       x\nPSHELL         4       1       x\n");
    ASSERT_TRUE(deck.result);
    ASSERT_EQ(deck.reader.GetSectionCout(), 4);
    EXPECT_EQ(deck.section(1), (SectionRowOfThree{1, 1, 2}));
    EXPECT_EQ(deck.section(2), (SectionRowOfThree{2, 1, 1}));
    EXPECT_EQ(deck.section(3), (SectionRowOfThree{3, 1, 3}));
    EXPECT_EQ(deck.section(4), (SectionRowOfThree{4, 1, 3}));
}

}  // namespace
}  // namespace kvocaeio::test
