/// Nastran decks before and after: the forms of cards.
#include "tidy/nastran_cards.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace {

using kvocaeio::test::cardsOf;
using kvocaeio::test::kBar;
using kvocaeio::test::TempFolder;
using kvocaeio::test::Tidied;
using kvocaeio::test::tidiedNastran;
using kvocaeio::test::tidyFile;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(TidyNastranCards, FreeFields) {
    EXPECT_EQ(cardsOf("GRID,1,,0.5,2.,3.\nGRID, 2 , 0 , 1.5 , , -3.\n"),
              "GRID           1             0.5      2.      3.\n"
              "GRID           2             1.5      0.     -3.\n");
}

TEST(TidyNastranCards, LargeFieldsWithTheirContinuation) {
    EXPECT_EQ(
        cardsOf("GRID*                  1               0   1.2345678E+00            -2.5\n"
                "*                   3.D0\n"
                "GRID*   2                               .5              .25             *G2\n"
                "*G2     3.5\n"),
        "GRID           1        1.234568    -2.5      3.\n"
        "GRID           2              .5     .25     3.5\n");
}

TEST(TidyNastranCards, LargeFreeFields) {
    EXPECT_EQ(cardsOf("GRID*,1,,0.5,2.\n*,3.\nGRID,2,,1.,1.,1.\n"),
              "GRID           1             0.5      2.      3.\n"
              "GRID           2              1.      1.      1.\n");
}

TEST(TidyNastranCards, TabsAndNamesInAnyCase) {
    EXPECT_EQ(cardsOf("grid\t1\t\t0.5\t2.\t3.\nGrid           2             1.5      0.     -3.\n"),
              "GRID           1             0.5      2.      3.\n"
              "GRID           2             1.5      0.     -3.\n");
}

TEST(TidyNastranCards, NumbersWithPlusSignsAndOtherExponents) {
    EXPECT_EQ(cardsOf("GRID           1          1.0E+3  +2.5+1  1.5D-3\n"),
              "GRID           1           1000.     25.   .0015\n");
}

TEST(TidyNastranCards, CommentsAndControlAreNoCards) {
    const Tidied result = tidiedNastran(
        "ID GRID,1\nSOL 101\nCEND\nTITLE = CHEXA\nBEGIN BULK\n$ CHEXA\n"
        "GRID           1              1.      2.      3.$ GRID 7\n"
        "SPCGRID        5       0      1.      2.      3.\n" +
        std::string(kBar) + "ENDDATA\nGRID           8\n");
    EXPECT_EQ(result.nodeOrigins, "1<1");
    EXPECT_THAT(result.notes, Contains("tidy.nastran-card-left-out"));
}

TEST(TidyNastranCards, DecksWithoutControlAndEnd) {
    const Tidied result = tidiedNastran("GRID,1\n" + std::string(kBar.substr(0, kBar.size() - 1)));
    EXPECT_TRUE(result.isDone);
    EXPECT_EQ(result.nodeOrigins, "1<1");
    EXPECT_EQ(result.elementOrigins, "9<9");
}

TEST(TidyNastranCards, HexahedraAreReadWhole) {
    EXPECT_EQ(
        cardsOf("CHEXA          7       3     109     110     111     112     113     114+EL1\n"
                "+EL1         115     116\n"),
        "CHEXA   00000007       1     109     110     111     112     113     114\n"
        "+            115     116\n");
    EXPECT_EQ(cardsOf("CHEXA,12345678,3,1,2,3,4,5,6,+,7,8\n"),
              "CHEXA   1234567800000001       1       2       3       4       5       6\n"
              "+              7       8\n");
    EXPECT_EQ(cardsOf("CHEXA,1,3,1,2,3,4,5,6\n,12345678,8\n"),
              "CHEXA   00000001       1       1       2       3       4       5       6\n"
              "+,12345678,       8\n");
}

TEST(TidyNastranCards, SecondOrderSolidsByTheirCorners) {
    const Tidied result = tidiedNastran(
        "GRID,1\nCTETRA,1,1,1,2,3,4,5,6,+\n+,7,8,9,10\n"
        "CPYRAM,2,1,1,2,3,4,5,6\n");
    EXPECT_EQ(result.text,
              "BEGIN BULK\n"
              "GRID           1              0.      0.      0.\n"
              "CTETRA         1       1       1       2       3       4\n"
              "CHEXA   00000002       1       1       2       3       4       5       5\n"
              "+              5       5\n"
              "ENDDATA\n");
    EXPECT_THAT(result.notes, Contains("tidy.nastran-mid-side-nodes").Times(2));
}

TEST(TidyNastranCards, ContinuationsInAnyOrder) {
    EXPECT_EQ(
        cardsOf("+C2            7       8\n"
                "CHEXA          1       1       1       2       3       4       5       6+C1\n"
                "CHEXA          2       1      11      12      13      14      15      16+C2\n"
                "$ between\n\n"
                "CPENTA         3       1       1       2       3       4       5       6\n"
                "+C1           27      28\n"),
        "CHEXA   00000001       1       1       2       3       4       5       6\n"
        "+             27      28\n"
        "CHEXA   00000002       1      11      12      13      14      15      16\n"
        "+              7       8\n"
        "CPENTA         3       1       1       2       3       4       5       6\n");
}

TEST(TidyNastranCards, CommentsBetweenTheLinesOfACard) {
    EXPECT_EQ(cardsOf("CHEXA,1,1,1,2,3,4,5,6\n$ comment\n\n,7,8\n"),
              "CHEXA   00000001       1       1       2       3       4       5       6\n"
              "+              7       8\n");
}

TEST(TidyNastranCards, ReplicationIsWrittenOut) {
    EXPECT_EQ(cardsOf("GRID,1,,1.5,2.,3.\n=,*1,=,*(.5),==\n=(2)\n"),
              "GRID           1             1.5      2.      3.\n"
              "GRID           2              2.      2.      3.\n"
              "GRID           3             2.5      2.      3.\n"
              "GRID           4              3.      2.      3.\n");
}

TEST(TidyNastranCards, PropertiesAreNumberedInTheirOrder) {
    const Tidied result = tidiedNastran(
        "GRID,1\nCTETRA,1,70,1,2,3,4\nCROD,2,5,1,2\nCROD,3,99,1,2\n"
        "PSOLID,70,7,0\nPROD,5,8,2.5+1\nPSHELL,6,9,.8\nPTUBE,7,1,+3.\n");
    EXPECT_EQ(result.text,
              "BEGIN BULK\n"
              "GRID           1              0.      0.      0.\n"
              "CTETRA         1       1       1       2       3       4\n"
              "CROD           2       2       1       2\n"
              "CROD           3       5       1       2\n"
              "PSOLID         1       7       0\n"
              "PROD           2       8     25.\n"
              "PSHELL         3       9      .8\n"
              "PTUBE          4       1      3.\n"
              "ENDDATA\n");
    EXPECT_EQ(result.propertyOrigins, "1<70 2<5 3<6 4<7");
}

TEST(TidyNastranCards, BeamsByTheDimensionsOfTheirSections) {
    EXPECT_EQ(cardsOf("PBARL,1,3,,BAR\n,2.,4.\nPBEAML,2,3,,tube\n,2.,1.\nPBARL,3,3,,STAR\n,1.\n"),
              "PBAR           1       3      8.\n"
              "PBEAM          2       39.424778\n"
              "PBAR           3       3\n");
}

TEST(TidyNastranCards, ShellsAreKeptAndTold) {
    const Tidied result = tidiedNastran("GRID,1\nCQUAD8,4,1,1,2,3,4,5,6,7,8\nCTRIA6,5,1,1,2,3\n");
    EXPECT_EQ(result.text,
              "BEGIN BULK\n"
              "GRID           1              0.      0.      0.\n"
              "CQUAD4         4       1       1       2       3       4\n"
              "CTRIA3         5       1       1       2       3\n"
              "ENDDATA\n");
    EXPECT_THAT(result.others, ElementsAre("2:1 tidy.nastran-shell", "3:1 tidy.nastran-shell"));
}

TEST(TidyNastranCards, ElementsThatTheReaderDoesNotKnowAreLeftOut) {
    const Tidied result = tidiedNastran("GRID,1\nCELAS2,4,1.,1,1\n" + std::string(kBar));
    EXPECT_THAT(result.others, ElementsAre("2:1 tidy.nastran-element-left-out"));
    EXPECT_EQ(result.elementOrigins, "9<9");
    EXPECT_TRUE(result.isDone);
}

TEST(TidyNastranCards, LongNumbersAreReplaced) {
    const Tidied result = tidiedNastran(
        "GRID,5\nGRID,100000000\nGRID,2147483647\n"
        "CROD,300000000,1,100000000,2147483647\n");
    EXPECT_EQ(result.text,
              "BEGIN BULK\n"
              "GRID           5              0.      0.      0.\n"
              "GRID           6              0.      0.      0.\n"
              "GRID           7              0.      0.      0.\n"
              "CROD           1       1       6       7\n"
              "ENDDATA\n");
    EXPECT_EQ(result.nodeOrigins, "5<5 6<100000000 7<2147483647");
    EXPECT_EQ(result.elementOrigins, "1<300000000");
}

TEST(TidyNastranCards, LongNumbersGoIntoGapsWhereNoneAreLeftAtTheEnd) {
    const Tidied result =
        tidiedNastran("GRID,1\nGRID,99999999\nGRID,100000000\n" + std::string(kBar));
    EXPECT_EQ(result.nodeOrigins, "1<1 99999999<99999999 2<100000000");
}

TEST(TidyNastranCards, APlainDeckNeedsNothing) {
    const std::string deck =
        "$ GRID in a comment\r\n"
        "SOL 101\r\nCEND\r\nBEGIN BULK\r\n"
        "GRID           1              1.      2.   3.5-1       7\r\n"
        "GRID    00000002       0   -1.5E      2.\r\n";
    const std::string plain =
        "GRID           1              1.      2.   3.5-1       7\n"
        "GRID    00000002       0    -1.5      2.\n"
        "CTETRA         3      77       1       2       1       2      15      16+T\n"
        "+T            17\n"
        "MAT1           1   9500.             .37 1.37-9\n"
        "PSOLID         1       3       0\n"
        "ENDDATA\n";
    EXPECT_TRUE(tidiedNastran(deck + std::string(kBar)).others.size() ==
                1);  // "-1.5E" is no number
    const Tidied result = tidiedNastran(plain);
    EXPECT_TRUE(result.isDone);
    EXPECT_FALSE(result.isNeeded);
    EXPECT_EQ(result.text, plain);
    EXPECT_EQ(result.nodeOrigins, "1<1 2<2");
    EXPECT_EQ(result.elementOrigins, "3<3");
    EXPECT_EQ(result.propertyOrigins, "1<1");
    EXPECT_THAT(result.notes, IsEmpty());
}

TEST(TidyNastranCards, WhatTheReaderWouldMisreadIsNotPlain) {
    const std::string grid = "GRID           1              1.      2.      3.\n";
    for (const std::string_view line :
         {"PSOLID         2       1       0\n", "SPCGRID        1\n", "$ CHEXA\n", "GRID,2\n",
          "gRid           2\n", "GRDSET                 3\n", "INCLUDE 'none'\n",
          "CQUADR         4\n", "=       \n", "PBARL          1       1\n", "GRID           2\t\n",
          "CHEXA          7       3     109     110     111     112     113     114\n"
          "+            115     116\n"})
        EXPECT_NE(tidiedNastran(grid + std::string(line) + std::string(kBar)).text,
                  grid + std::string(line) + std::string(kBar))
            << line;
}

TEST(TidyNastranCards, ErrorsHaveThePlaceOfTheField) {
    const auto othersOf = [](const std::string& cards) {
        const Tidied result = tidiedNastran("GRID,1\n" + cards + std::string(kBar));
        EXPECT_FALSE(result.isDone);
        EXPECT_EQ(result.text, "");
        return result.others;
    };
    EXPECT_THAT(othersOf("GRID, 2,,1.,x,3.\n"),
                ElementsAre("2:13 tidy.nastran-coordinate-unreadable"));
    EXPECT_THAT(othersOf("GRID    x\n"), ElementsAre("2:9 tidy.nastran-id-unreadable"));
    EXPECT_THAT(othersOf("CTETRA         3       1       1       2       3\n"),
                ElementsAre("2:0 tidy.nastran-node-missing"));
    EXPECT_THAT(othersOf("GRID,2,5\n"), ElementsAre("2:8 tidy.nastran-frame-missing"));
    EXPECT_THAT(othersOf("INCLUDE 'none'\n"), ElementsAre("2:1 tidy.include-missing"));
    EXPECT_THAT(othersOf("INCLUDE 'none\n"), ElementsAre("2:1 tidy.nastran-include-name"));
    EXPECT_THAT(othersOf("=(3)\n"), ElementsAre("2:1 tidy.nastran-replication-wrong"));
}

TEST(TidyNastranCards, ADeckWithoutNodesOrElementsIsNone) {
    EXPECT_THAT(tidiedNastran(std::string(kBar)).others, ElementsAre("0:0 tidy.nastran-no-nodes"));
    EXPECT_THAT(tidiedNastran("GRID,1\n").others, ElementsAre("0:0 tidy.nastran-no-elements"));
    EXPECT_THAT(tidiedNastran("").others, ElementsAre("0:0 tidy.nastran-no-nodes"));
}

TEST(TidyNastranCards, IncludesWithQuotesOverSeveralLines) {
    const TempFolder folder;
    folder.makeFolder("sub");
    folder.write("sub/Nodes.bdf", "GRID,1\nGRID,2\ninclude more.bdf $ comment\n");
    folder.write("sub/more.bdf", "GRID,3\n");
    folder.write("deck", "INCLUDE 'SUB/\n  nodes.BDF'\n" + std::string(kBar));
    const Tidied result = tidyFile(folder, "deck", CKVODeckTidy::kNastran);
    EXPECT_TRUE(result.isDone);
    EXPECT_EQ(result.nodeOrigins, "1<1 2<2 3<3");
}

TEST(TidyNastranCards, ATidyDeckStaysAsItIs) {
    const TempFolder folder;
    folder.write("deck",
                 "GRID,1,,1.23456789+5,1.2345-7,-9.87654321\nGRID,12345678\n"
                 "CHEXA,7,3,1,2,3,4,5,6\n,12345678,8\nCHEXA,12345679,3,1,2,3,4,5,6\n,7,8\n"
                 "CQUAD8,9,3,1,2,3,4,5,6,7,8\nPSHELL,8,1,1.5\nPBARL,9,1,,ROD\n,2.\n");
    const Tidied first = tidyFile(folder, "deck", CKVODeckTidy::kNastran);
    EXPECT_TRUE(first.isNeeded);
    folder.write("deck", first.text);
    const Tidied second = tidyFile(folder, "deck", CKVODeckTidy::kNastran);
    EXPECT_TRUE(second.isDone);
    EXPECT_FALSE(second.isNeeded);
    EXPECT_EQ(second.text, first.text);
}

TEST(TidyNastranCards, TheDeviationIsThatOfTheWorstCoordinate) {
    EXPECT_EQ(tidiedNastran("GRID,1,,1.5,2.,3.\n" + std::string(kBar)).deviation, 0.0);
    EXPECT_NEAR(tidiedNastran("GRID,1,,12345.678,1.00000004,3.\n" + std::string(kBar)).deviation,
                0.002, 1e-9);
}

}  // namespace
