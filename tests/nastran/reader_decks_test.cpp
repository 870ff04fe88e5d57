/// Counts, continuation lines, line bounds, and decks as other programs write them.
#include <cstdio>
#include <gtest/gtest.h>
#include <string>

#include "nastran/deck.h"

namespace kvocaeio::test {
namespace {

const std::string kHexa =
    "CHEXA          7       1     101     102     103     104     105     106";

// The `CHEXA` 7 of a deck: its first line, then what follows it, byte for byte.
ElementRow hexaOf(const std::string& cards) {
    ReadDeck deck(kGrid + cards);
    EXPECT_TRUE(deck.result) << cards;
    return deck.result ? deck.element(7) : kNoElement;
}

TEST(LargestIds, GiveTheRowCounts) {
    ReadDeck deck("GRID        1000       0     1.0     2.0     3.0\n" + kGrid + kTetra +
                  "CQUAD4        30       1       1       1       1       1\n");
    ASSERT_TRUE(deck.result);
    EXPECT_EQ(deck.reader.GetNodeCout(), 1000);
    EXPECT_EQ(deck.reader.GetElemCout(), 30);
    EXPECT_EQ(deck.node(1), (NodeRow{1, 0, 0, 0}));
    EXPECT_EQ(deck.node(1000), (NodeRow{1000, 1, 2, 3}));
    for (int oid = 2; oid < 1000; ++oid)
        EXPECT_EQ(deck.node(oid), kNoNode) << oid;
    EXPECT_EQ(deck.element(1), (ElementRow{1, 1, 1, 1, 1, 1, 1, 1, 1}));
    for (int oid = 2; oid <= 30; ++oid)
        EXPECT_EQ(deck.element(oid), kNoElement) << oid;
}

TEST(LargestIds, NeedANodeAndAnElementOfAnyFamily) {
    EXPECT_FALSE(ReadDeck("").result);
    EXPECT_FALSE(ReadDeck(kGrid).result);
    EXPECT_FALSE(ReadDeck(kTetra).result);
    for (const std::string name : {"CROD  ", "CTUBE ", "CBAR  ", "CBEAM ", "CQUAD4", "CTRIA3",
                                   "CSHEAR", "CTETRA", "CPENTA", "CHEXA ", "CQUAD8", "CTRIAX"})
        EXPECT_TRUE(ReadDeck(kGrid + name + "         3       1\n").result) << name;
    for (const std::string name : {"CGAP  ", "CPYRAM", "CELAS1", "CONM2 ", "PSOLID", "RBE2  "})
        EXPECT_FALSE(ReadDeck(kGrid + name + "         3       1\n").result) << name;
}

TEST(LargestIds, BelowOneFail) {
    EXPECT_FALSE(ReadDeck(kTetra + "GRID           0       0     1.0     2.0     3.0\n").result);
    EXPECT_FALSE(ReadDeck(kTetra + "GRID          -5       0     1.0     2.0     3.0\n").result);
    EXPECT_FALSE(ReadDeck(kTetra + "GRID\n").result);
    EXPECT_FALSE(ReadDeck(kTetra + "GRID           x\n").result);
    EXPECT_FALSE(ReadDeck(kGrid + "CBAR           0       1       1       1\n").result);
    EXPECT_FALSE(ReadDeck(kGrid + "CBAR           x       1       1       1\n").result);
}

TEST(LargestIds, PropertyOidsDoNotMatter) {
    for (const std::string pid : {"       0", "      -9", "        ", "       x", "       5"}) {
        ReadDeck deck(kGrid + "CBAR           3" + pid + "       1       2\n");
        EXPECT_TRUE(deck.result) << pid;
        EXPECT_EQ(deck.reader.GetSectionCout(), 0) << pid;
    }
}

TEST(LargestIds, ComeFromAnyLineThatHoldsAName) {
    // One line may raise both, whatever it is read as later.
    ReadDeck deck("X             20       1    CBAR    GRID\n");
    ASSERT_TRUE(deck.result);
    EXPECT_EQ(deck.reader.GetNodeCout(), 20);
    EXPECT_EQ(deck.reader.GetElemCout(), 20);
    EXPECT_EQ(deck.node(20)[0], 20.0F);
    EXPECT_EQ(deck.element(20), kNoElement);
    // A name where the number should stand.
    EXPECT_FALSE(ReadDeck(kTetra + "X           GRID      20\n").result);
}

TEST(LargestIds, OfNodesBelowOneLeaveNoRow) {
    ReadDeck deck(kGrid + kTetra +
                  "GRID           0       0     7.0     7.0     7.0\n"
                  "GRID         -20       0     7.0     7.0     7.0\n"
                  "CBAR           0       1       7       7\n"
                  "CBAR          -5       1       7       7\n");
    ASSERT_TRUE(deck.result);
    EXPECT_EQ(deck.reader.GetNodeCout(), 1);
    EXPECT_EQ(deck.reader.GetElemCout(), 1);
    EXPECT_EQ(deck.node(1), (NodeRow{1, 0, 0, 0}));
    EXPECT_EQ(deck.element(1), (ElementRow{1, 1, 1, 1, 1, 1, 1, 1, 1}));
}

TEST(Sections, CountIsTheOidOfTheLastCard) {
    ReadDeck deck(kGrid + kTetra +
                  "PSOLID         9       2       1\nPSHELL         5       2     2.5\n"
                  "PSOLID         2       1       3\n");
    ASSERT_TRUE(deck.result);
    ASSERT_EQ(deck.reader.GetSectionCout(), 2);
    // In deck order; the third one has no row.
    EXPECT_EQ(deck.section(1), (SectionRowOfThree{9, 2, 1}));
    EXPECT_EQ(deck.section(2), (SectionRowOfThree{5, 2, 2}));
}

TEST(Sections, RowsWithoutACardAreZero) {
    ReadDeck deck(kGrid + "PSOLID         4       2       1\n" + kTetra);
    ASSERT_TRUE(deck.result);
    ASSERT_EQ(deck.reader.GetSectionCout(), 4);
    EXPECT_EQ(deck.section(1), (SectionRowOfThree{4, 2, 1}));
    for (int row = 2; row <= 4; ++row)
        EXPECT_EQ(deck.section(row), (SectionRowOfThree{0, 0, 0}));
    EXPECT_EQ(deck.reader.GetPropertiesCout(), 1);
}

TEST(Sections, OfALastOidBelowOneAreNone) {
    for (const int last : {5, 0, -3}) {
        char card[40];
        std::snprintf(card, sizeof card, "PSOLID  %8d       1       1\n", last);
        ReadDeck deck(kGrid + kTetra + "PSOLID         5       1       1\n" + card);
        ASSERT_TRUE(deck.result);
        EXPECT_EQ(deck.reader.GetSectionCout(), last);
        EXPECT_EQ(deck.reader.GetPropertiesCout(), last == 5 ? 1 : 0) << last;
        EXPECT_NE(deck.reader.GetSectionVector(), nullptr);
    }
}

TEST(Materials, AreCountedOnceEach) {
    ReadDeck deck(kGrid + kTetra +
                  "PSOLID         1       2\nPSOLID         2       4\nPSOLID         3       2\n"
                  "PSOLID         4       1\n");
    EXPECT_EQ(deck.reader.GetPropertiesCout(), 3);
    EXPECT_EQ(deck.reader.GetPropertiesCout(), 3);
}

TEST(Materials, BeyondTheSectionCountAreNotCounted) {
    ReadDeck deck(kGrid + kTetra +
                  "PSOLID         1       0\nPSOLID         2      -1\nPSOLID         399999999\n"
                  "PSOLID         4       5\nPSOLID         5       5\nPSOLID         6       7\n");
    EXPECT_EQ(deck.reader.GetSectionCout(), 6);
    EXPECT_EQ(deck.section(3), (SectionRowOfThree{3, 99999999, 0}));
    EXPECT_EQ(deck.section(6), (SectionRowOfThree{6, 7, 0}));
    EXPECT_EQ(deck.reader.GetPropertiesCout(), 1);
}

TEST(Continuation, OfTwoFixedLinesGivesAZeroForTheSeventhNode) {
    const ElementRow expected{7, 101, 102, 103, 104, 105, 106, 0, 107};
    EXPECT_EQ(hexaOf(kHexa + "\n             107     108\n"), expected);
    EXPECT_EQ(hexaOf(kHexa + "+EL1    \n+EL1         107     108\n"), expected);
    EXPECT_EQ(hexaOf(kHexa + "\r\n             107     108\r\n"), expected);
    EXPECT_EQ(hexaOf("$ comment\n" + kHexa + "\n             107     108"), expected);
}

TEST(Continuation, WithALabelOfFewColumnsMovesTheNumbers) {
    // "EL1" and the eight blanks of the comma: a field ends two characters before the seventh
    // node's does, and the label takes the first of its three digits along.
    EXPECT_EQ(hexaOf(kHexa + "+EL1\n+EL1          17      18\n"),
              (ElementRow{7, 101, 102, 103, 104, 105, 106, 0, 17}));
    EXPECT_EQ(hexaOf(kHexa + "+EL1\n+EL1         157     158\n"),
              (ElementRow{7, 101, 102, 103, 104, 105, 106, 0, 57}));
}

TEST(Continuation, WithoutAMarkerLosesNineCharacters) {
    EXPECT_EQ(hexaOf(kHexa + "\n        10700000 0800000\n"),
              (ElementRow{7, 101, 102, 103, 104, 105, 106, 0, 700000}));
}

TEST(Continuation, WithACommaLosesWhatStandsBeforeIt) {
    const ElementRow expected{7, 101, 102, 103, 104, 105, 106, 0, 107};
    EXPECT_EQ(hexaOf(kHexa + "\n,107,108\n"), expected);
    EXPECT_EQ(hexaOf(kHexa + "\n+,107,108\n"), expected);
    EXPECT_EQ(hexaOf(kHexa + "\nabcdefg,107,108\n"), expected);
    EXPECT_EQ(hexaOf(kHexa + "\nabcdefgh,107,108\n"), expected);  // the ninth, dropped as such
    EXPECT_EQ(hexaOf(kHexa + "\n12345678 107\n"), expected);
}

TEST(Continuation, ThatIsShortStaysAsItIs) {
    // Six digits and the line feed: seven characters. One more, and all of it goes.
    EXPECT_EQ(hexaOf(kHexa + "\n123456\n"),
              (ElementRow{7, 101, 102, 103, 104, 105, 106, 123456, 0}));
    EXPECT_EQ(hexaOf(kHexa + "\n1234567\n"), (ElementRow{7, 101, 102, 103, 104, 105, 106, 0, 0}));
    EXPECT_EQ(hexaOf(kHexa + "\n1234567"),
              (ElementRow{7, 101, 102, 103, 104, 105, 106, 1234567, 0}));
    EXPECT_EQ(hexaOf(kHexa + "+12\n34\n"), (ElementRow{7, 101, 102, 103, 104, 105, 106, 0, 1234}));
    EXPECT_EQ(hexaOf(kHexa + "\n"
                             "\n"),
              (ElementRow{7, 101, 102, 103, 104, 105, 106, 0, 0}));
}

TEST(Continuation, AtTheEndOfTheDeckIsTheLineItself) {
    // Behind the filler: "     7", the line again without its first nine characters.
    const ElementRow expected{7, 101, 102, 103, 104, 105, 106, 0, 7};
    EXPECT_EQ(hexaOf(kHexa + "\n"), expected);
    EXPECT_EQ(hexaOf(kHexa), expected);
}

TEST(Continuation, IsNoCardOfItsOwn) {
    // The node counts for the rows, and is swallowed; so is a comment's next line.
    for (const std::string first : {"CQUAD8         5       1\n", "$ CHEXA\n", "$CQUAD8\n"}) {
        ReadDeck deck(kGrid + kTetra + first +
                      "GRID           3       0     1.0     2.0     3.0\n");
        ASSERT_TRUE(deck.result) << first;
        EXPECT_EQ(deck.reader.GetNodeCout(), 3) << first;
        EXPECT_EQ(deck.node(3), kNoNode) << first;
    }
    ReadDeck deck(kGrid + kTetra +
                  "CQUAD4         5       1\nGRID           3       0     1.0     2.0     3.0\n");
    EXPECT_EQ(deck.node(3), (NodeRow{3, 1, 2, 3}));
}

TEST(Continuation, OfACquad8LeavesAnEmptyRow) {
    ReadDeck deck(kGrid +
                  "CQUAD8         5       1      11      12      13      14      15      16+A\n"
                  "+A            17      18\n"
                  "CBAR           3       1       1       2\n");
    ASSERT_TRUE(deck.result);
    EXPECT_EQ(deck.reader.GetElemCout(), 5);
    EXPECT_EQ(deck.element(5), kNoElement);
    EXPECT_EQ(deck.element(3), (ElementRow{3, 1, 2, 2, 2, 2, 2, 2, 2}));
}

TEST(Continuation, MakesOneTextOfBothLines) {
    // The short second line is a name, and the first one of the table.
    ReadDeck deck(kTetra + kGrid + "CHEXA          5       1    1.25     2.5     3.5\nGRID\n");
    ASSERT_TRUE(deck.result);
    EXPECT_EQ(deck.reader.GetNodeCout(), 1);  // the element's OID has no row among the nodes
    EXPECT_EQ(deck.element(5), kNoElement);
    // Padded to column 72, and "CBAR" in the columns behind it.
    ReadDeck bar(kGrid + "CHEXA          5       1      11      12\nCBAR\n");
    ASSERT_TRUE(bar.result);
    EXPECT_EQ(bar.element(5), (ElementRow{5, 11, 12, 12, 12, 12, 12, 12, 12}));
}

TEST(HexFiller, BehindTheFirstZeroIsWiped) {
    // In free fields each number fills no field: "0" fillers stand between, and one of them stays.
    EXPECT_EQ(hexaOf("CHEXA,7,1,11,12,13,14,15,16,\n,17,18\n")[0], 7);
    // An empty field reads zero once; a second one takes no place.
    EXPECT_EQ(hexaOf("CHEXA          7       1                      13      14      15      16\n"
                     "              17      18\n"),
              (ElementRow{7, 0, 13, 14, 15, 16, 17, 18, 0}));
}

TEST(HexFiller, ALabelTakes16CharactersAlong) {
    // "EL" in place of G6: the label, its field and the first seven of the next are wiped.
    EXPECT_EQ(hexaOf("CHEXA          7       1     101     102     103     104     105ELxxxxxx\n"
                     "             107     108\n"),
              // The kept "E" ends the numbers: G6 and those behind it stay as they were.
              (ElementRow{7, 101, 102, 103, 104, 105, 0, 0, 0}));
}

TEST(LineBound, CutsALineInto254Characters) {
    // The rest of a long comment is a line of its own.
    const std::string comment = "$" + std::string(253, 'x');
    ReadDeck deck(comment + "GRID           3       0     1.0     2.0     3.0\n" + kGrid + kTetra);
    ASSERT_TRUE(deck.result);
    EXPECT_EQ(deck.reader.GetNodeCout(), 3);
    EXPECT_EQ(deck.node(3), (NodeRow{3, 1, 2, 3}));
    ReadDeck one(comment.substr(1) + "GRID           3       0     1.0     2.0     3.0\n" + kGrid +
                 kTetra);
    EXPECT_EQ(one.reader.GetNodeCout(), 1);
}

TEST(LineBound, MergedTextIsHeldWhole) {
    // Both lines are as long as lines get; expanded they have thousands of characters.
    const std::string commas(150, ',');
    EXPECT_EQ(hexaOf(kHexa + commas + "\n" + "," + commas + "9\n"),
              (ElementRow{7, 101, 102, 103, 104, 105, 106, 0, 9}));
}

TEST(Lines, EndAtANul) {
    using std::string_literals::operator""s;
    ReadDeck deck("GRID           3       0     1.0     2.0\0     3.0\n"s + kGrid + kTetra +
                  "\0GRID          9       0\n"s);
    ASSERT_TRUE(deck.result);
    EXPECT_EQ(deck.reader.GetNodeCout(), 3);
    EXPECT_EQ(deck.node(3), (NodeRow{3, 1, 2, 0}));
    EXPECT_EQ(hexaOf(kHexa + "\n\0     107     108\n"s),
              (ElementRow{7, 101, 102, 103, 104, 105, 106, 0, 0}));
}

TEST(Lines, TheLastNeedsNoLineFeed) {
    ReadDeck deck(kTetra + "GRID           3       0     1.0     2.0     3.5");
    ASSERT_TRUE(deck.result);
    EXPECT_EQ(deck.node(3), (NodeRow{3, 1, 2, 3.5F}));
    // Without a line feed nothing is padded: the last number stays as the card before left it.
    ReadDeck cut("GRID           2       0     1.0     2.0     9.0\n" + kTetra +
                 "GRID           3       0     4.0");
    EXPECT_EQ(cut.node(3), (NodeRow{3, 4, 2, 9}));
}

TEST(RealWorld, ASolidModelWithCaseControl) {
    ReadDeck deck(
        "$ Bracket, mm, t, s\n"
        "INIT MASTER(S)\n"
        "ID BRACKET,SOLID\n"
        "SOL 101\n"
        "TIME 10\n"
        "CEND\n"
        "  TITLE = Bracket, 3 elements\n"
        "  ECHO = NONE\n"
        "  DISPLACEMENT(PLOT) = ALL\n"
        "  SPC = 1\n"
        "  LOAD = 1\n"
        "BEGIN BULK\n"
        "PARAM,POST,-1\n"
        "CORD2C         1       0      0.      0.      0.      0.      0.      1.+MSC0001\n"
        "+MSC0001      1.      0.      1.\n"
        "$ Material\n"
        "MAT1           1 210000.              .3  7.85-9\n"
        "PSOLID         1       1       0\n"
        "PSOLID         2       3       0        GRID\n"
        "$ Nodes\n"
        "GRID           1       0      0.      0.      0.       0\n"
        "GRID           2       0     10.      0.      0.       0\n"
        "GRID           3       0     10.     10.      0.       0\n"
        "GRID           4       0      0.     10.    -1.5       0\n"
        "GRID           9          2.54-2-1.23456 1.0E-02\n"
        "$ Elements\n"
        "CTETRA         1       1       1       2       3       4\n"
        "CPENTA         2       1       1       2       3       4       9       9\n"
        "CHEXA          4       2       1       2       3       4       9       9+EL00004\n"
        "+EL00004       1       2\n"
        "CTRIA3         6       1       1       2       3\n"
        "CBAR           5       1       1       4     1.0     0.0     0.0\n"
        "FORCE          1       3       0    100.      1.      0.      0.\n"
        "SPC1           1  123456       1    THRU       2\n"
        "ENDDATA\n");
    ASSERT_TRUE(deck.result);
    EXPECT_EQ(deck.reader.GetNodeCout(), 9);
    EXPECT_EQ(deck.reader.GetElemCout(), 6);
    // The second PSOLID holds the word GRID, which makes it node 2 until the true one comes.
    EXPECT_EQ(deck.reader.GetSectionCout(), 1);
    EXPECT_EQ(deck.section(1), (SectionRowOfThree{1, 1, 0}));
    EXPECT_EQ(deck.reader.GetPropertiesCout(), 1);
    EXPECT_EQ(deck.node(2), (NodeRow{2, 10, 0, 0}));
    EXPECT_EQ(deck.node(4), (NodeRow{4, 0, 10, -1.5F}));
    EXPECT_EQ(deck.node(9), (NodeRow{9, 0.0254F, -1.23456F, 0.01F}));
    EXPECT_EQ(deck.element(1), (ElementRow{1, 1, 2, 3, 4, 4, 4, 4, 4}));
    EXPECT_EQ(deck.element(2), (ElementRow{2, 1, 2, 3, 4, 9, 9, 9, 9}));
    EXPECT_EQ(deck.element(4), (ElementRow{4, 1, 2, 3, 4, 9, 9, 0, 1}));
    EXPECT_EQ(deck.element(5), (ElementRow{5, 1, 4, 4, 4, 4, 4, 4, 4}));
    EXPECT_EQ(deck.element(6), kNoElement);
}

TEST(RealWorld, AFreeFieldDeckOfBeamsAndShells) {
    // Numbers of up to seven characters in fields that begin behind a comma: what survives of them.
    ReadDeck deck(
        "BEGIN BULK\n"
        "GRID,11,,1.,2.,3.\n"
        "GRID,12,0,5,6,7\n"
        "CBEAM,21,1,11,12,1.,0.,0.\n"
        "CQUAD4,22,2,11,12,13,14\n"
        "PBEAML,1,1,,ROD\n"
        "+,5.\n"
        "PSHELL,2,1,3.\n"
        "MAT1,1,7.+4,,.33\n"
        "ENDDATA\n");
    ASSERT_TRUE(deck.result);
    EXPECT_EQ(deck.reader.GetNodeCout(), 12);
    EXPECT_EQ(deck.reader.GetElemCout(), 22);
    EXPECT_EQ(deck.reader.GetSectionCout(), 2);
    // GRID____ ____11__ ________ ______1. ________ 2.______ __3.: two fillers.
    EXPECT_EQ(deck.node(11), (NodeRow{11, 1, 0, 2}));
    // GRID____ ____12__ ______0_ _______5 ________ 6_______ _7: a filler behind the 5.
    EXPECT_EQ(deck.node(12), (NodeRow{12, 5, 0, 6}));
    // CBEAM___ _____21_ _______1 ________ 11______ __12____: a filler for G1.
    EXPECT_EQ(deck.element(21), (ElementRow{21, 0, 11, 11, 11, 11, 11, 11, 11}));
    EXPECT_EQ(deck.element(22), kNoElement);
    // PBEAML__ ______1_ _______1 ________ ...: the filler is the area.
    EXPECT_EQ(deck.section(1), (SectionRowOfThree{1, 1, 0}));
    // PSHELL__ ______2_ _______1 ________ 3.: and here the thickness.
    EXPECT_EQ(deck.section(2), (SectionRowOfThree{2, 1, 0}));
}

}  // namespace
}  // namespace kvocaeio::test
