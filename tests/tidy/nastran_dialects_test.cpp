/// Nastran decks in the dialects of the programs that write them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "tidy/nastran_cards.h"

namespace {

using kvocaeio::test::cardsOf;
using kvocaeio::test::kBar;
using kvocaeio::test::TempFolder;
using kvocaeio::test::Tidied;
using kvocaeio::test::tidiedNastran;
using kvocaeio::test::tidyFile;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A hexahedron, whatever form it is read from.
constexpr std::string_view kHexa =
    "CHEXA   00000001       1      11      12      13      14      15      16\n"
    "+             17      18\n";

TEST(TidyNastranDialects, AHexahedronInEachFormOfContinuation) {
    for (const std::string_view card :
         {// fixed fields: marks, a plus sign alone, blanks, blanks in one line
          "CHEXA          1       5      11      12      13      14      15      16+A\n"
          "+A            17      18\n",
          "CHEXA          1       5      11      12      13      14      15      16+\n"
          "+             17      18\n",
          "CHEXA          1       5      11      12      13      14      15      16\n"
          "+             17      18\n",
          "CHEXA          1       5      11      12      13      14      15      16\n"
          "              17      18\n",
          "CHEXA          1       5      11      12      13      14      15      16+A\n"
          "              17      18\n",
          "CHEXA          1       5      11      12      13      14      15      16\n"
          "+A            17      18\n",
          // marks whose first column is blank, another character, or another case
          "CHEXA          1       5      11      12      13      14      15      16 A\n"
          "+A            17      18\n",
          "CHEXA          1       5      11      12      13      14      15      16ABC\n"
          "+BC           17      18\n",
          "chexa          1       5      11      12      13      14      15      16+hx1\n"
          "+HX1          17      18\n",
          // mid-side nodes
          "CHEXA          1       5      11      12      13      14      15      16+A\n"
          "+A            17      18      19      20      21      22      23      24+B\n"
          "+B            25      26      27      28      29      30\n",
          // free fields
          "CHEXA,1,5,11,12,13,14,15,16,+A\n+A,17,18\n", "CHEXA,1,5,11,12,13,14,15,16,+\n+,17,18\n",
          "CHEXA,1,5,11,12,13,14,15,16\n,17,18\n", "CHEXA,1,5,11,12,13,14,15,16,\n,17,18,,\n",
          "CHEXA,1,5,11,12,13,14,15,16,17,18\n", "CHEXA , 1, 5, 11,12 ,13,14,15,16\n + , 17, 18\n",
          "CHEXA,1,5,11,12,13,14,15,16,+A,+A,17,18\n",
          // large fields
          "CHEXA*                 1               5              11              12*A\n"
          "*A                    13              14              15              16*B\n"
          "*B                    17              18\n",
          "CHEXA*                 1               5              11              12\n"
          "*                     13              14              15              16\n"
          "*                     17              18\n",
          "CHEXA*,1,5,11,12,*A\n*A,13,14,15,16,*B\n*B,17,18\n",
          // forms mixed within the card
          "CHEXA*                 1               5              11              12*A\n"
          "*A                    13              14              15              16+B\n"
          "+B            17      18\n",
          "CHEXA          1       5      11      12      13      14      15      16*A\n"
          "*A                    17              18\n",
          "CHEXA          1       5      11      12      13      14      15      16+A\n+A,17,18\n",
          "CHEXA,1,5,11,12,13,14,15,16,+A\n+A            17      18\n",
          "CHEXA,1,5,11,12,13,14,15,16\n              17      18\n",
          "CHEXA*,1,5,11,12,*A\n*A,13,14,15,16,+B\n+B,17,18\n",
          // tabs, comments between the lines, text beyond the last field
          "CHEXA\t1\t5\t11\t12\t13\t14\t15\t16\t+\n+\t17\t18\n",
          "CHEXA,1,5,11,12,13,14,15,16 $ eight, of\n$ CHEXA\n\n,17,18$ nodes, each\n",
          "CHEXA          1       5      11      12      13      14      15      16+A      98765\n"
          "+A            17      18                                                       98766\n"})
        EXPECT_EQ(cardsOf(std::string(card)), kHexa) << card;
}

TEST(TidyNastranDialects, ContinuationsOfSeveralLinesInAnyOrder) {
    EXPECT_EQ(
        cardsOf("+B            17      18\n"
                "CTETRA         2       1      21      22      23      24\n"
                "*A                    13              14              15              16+B\n"
                "$ the card comes last\n"
                "CHEXA*                 1               1              11              12*A\n"),
        "CTETRA         2       1      21      22      23      24\n" + std::string(kHexa));
    EXPECT_EQ(
        cardsOf("+BC           17      18\n"
                "CROD           2       1      21      22\n"
                "CHEXA          1       1      11      12      13      14      15      16ABC\n"),
        "CROD           2       1      21      22\n" + std::string(kHexa));
}

TEST(TidyNastranDialects, ContinuationsInIncludedFiles) {
    const TempFolder folder;
    folder.write("rest.bdf", "+A,17,18\n");
    folder.write("deck", "GRID,1\nCHEXA,1,1,11,12,13,14,15,16,+A\nINCLUDE 'rest.bdf'\nENDDATA\n");
    EXPECT_THAT(tidyFile(folder, "deck", CKVODeckTidy::kNastran).text, HasSubstr(kHexa));
}

TEST(TidyNastranDialects, AContinuationInAFileThatIsIncludedLater) {
    const TempFolder folder;
    folder.write("rest.bdf", "\n+A,17,x\n");
    folder.write("deck", "CHEXA,1,1,11,12,13,14,15,16,+A\nGRID,1\nINCLUDE 'rest.bdf'\nENDDATA\n");
    EXPECT_THAT(tidyFile(folder, "deck", CKVODeckTidy::kNastran).others,
                ElementsAre("2:7 tidy.nastran-node-missing"));
    folder.write("rest.bdf", "+A,17,18\n");
    const Tidied result = tidyFile(folder, "deck", CKVODeckTidy::kNastran);
    EXPECT_THAT(result.text, HasSubstr(kHexa));
    EXPECT_EQ(result.elementOrigins, "1<1");
}

TEST(TidyNastranDialects, AFieldInThePlaceOfAMark) {
    EXPECT_EQ(cardsOf("GRID*,1,,.5,2.,3.\n"), "GRID           1              .5      2.      3.\n");
}

TEST(TidyNastranDialects, IncludesInEveryForm) {
    const TempFolder folder;
    folder.makeFolder("sub");
    folder.makeFolder("with blanks");
    folder.write("sub/Mesh.BDF", "GRID,1\nGRID,2\n");
    folder.write("with blanks/mesh.bdf", "GRID,1\nGRID,2\n");
    for (const std::string_view statement :
         {"INCLUDE 'sub/Mesh.BDF'", "INCLUDE \"sub/Mesh.BDF\"", "INCLUDE sub/Mesh.BDF",
          "include 'SUB/mesh.bdf'", "Include sub\\mesh.bdf", "INCLUDE='sub/Mesh.BDF'",
          "INCLUDE = sub/Mesh.BDF", "  INCLUDE 'sub/Mesh.BDF'  $ comment",
          "INCLUDE\t'sub/Mesh.BDF'", "INCLUDE sub/Mesh.BDF $ comment", "INCLUDE 'sub/\nMesh.BDF'",
          "INCLUDE 'sub\n   /Me\n sh.BDF'", "INCLUDE \"sub/\n Mesh.BDF\" $ comment",
          "INCLUDE\n'sub/Mesh.BDF'", "INCLUDE sub/\n  Mesh.BDF", "INCLUDE './sub/../sub/Mesh.BDF'",
          "INCLUDE 'with blanks/mesh.bdf'", "INCLUDE 'with blanks\\MESH.BDF'"}) {
        folder.write("deck", std::string(statement) + "\n" + std::string(kBar));
        const Tidied result = tidyFile(folder, "deck", CKVODeckTidy::kNastran);
        EXPECT_TRUE(result.isDone) << statement;
        EXPECT_EQ(result.nodeOrigins, "1<1 2<2") << statement;
        EXPECT_THAT(result.notes, Contains("tidy.included"));
    }
}

TEST(TidyNastranDialects, IncludesInAllSectionsOfADeck) {
    const TempFolder folder;
    folder.makeFolder("sub");
    folder.write("executive.dat", "SOL 101\nCEND\n");
    folder.write("case.dat", "SUBCASE 1\n  DISP = ALL\nBEGIN BULK\n");
    folder.write("sub/bulk.dat", "GRID,1\ninclude 'more.dat'\nENDDATA\nGRID,4\n");
    folder.write("sub/more.dat", "GRID,2\n");
    folder.write("more.dat", "GRID,3\n");
    folder.write("deck", "INCLUDE 'executive.dat'\nINCLUDE 'case.dat'\n" + std::string(kBar) +
                             "INCLUDE 'sub/bulk.dat'\nGRID,5\n");
    EXPECT_EQ(tidyFile(folder, "deck", CKVODeckTidy::kNastran).nodeOrigins, "1<1 2<2");
}

TEST(TidyNastranDialects, FindingsHaveTheirPlacesInIncludedFiles) {
    const TempFolder folder;
    folder.write("mesh.bdf", "$ nodes\nGRID,1\n\nCELAS2,4,1.,1,1\nGRID,2,,1.,y,0.\n");
    const std::string deck = folder.write("deck", "$\nINCLUDE 'mesh.bdf'\nCQUAD4,1,1,1,2,3,4\n");
    CKVODeckTidy tidy;
    CKVOImportReport report;
    EXPECT_FALSE(tidy.Tidy(deck.c_str(), nullptr, CKVODeckTidy::kNastran, &report));
    std::vector<std::string> places;
    CKVOImportReport::FindingData finding;
    for (report.GetFindingBegin(); report.GetFindingNext(&finding);)
        if (finding.severity != CKVOImportReport::kNote)
            places.push_back(std::filesystem::path(finding.file).filename().string() + ":" +
                             std::to_string(finding.line) + ":" + std::to_string(finding.column) +
                             " " + finding.code);
    EXPECT_THAT(places,
                testing::UnorderedElementsAre("mesh.bdf:4:1 tidy.nastran-element-left-out",
                                              "mesh.bdf:5:12 tidy.nastran-coordinate-unreadable",
                                              "deck:3:1 tidy.nastran-shell"));
}

TEST(TidyNastranDialects, WhatStandsBeforeBeginIsNoCard) {
    const Tidied result = tidiedNastran(
        "NASTRAN BUFFSIZE=65537\nINIT MASTER(S)\nID GRID,2\nSOL 101\nCBAR,7,7,7,7\nCEND\n"
        "TITLE = a CHEXA\nSET 1 = 1,\n   2, 3\nGRID,3\nPROD,4,4,4.\nCORD2R,4\nGRDSET,,4\n"
        "begin bulk\nGRID,1\nPROD,1,1,1.\n" +
        std::string(kBar) + "enddata\nGRID,4\n");
    EXPECT_TRUE(result.isDone);
    EXPECT_EQ(result.nodeOrigins, "1<1");
    EXPECT_EQ(result.elementOrigins, "9<9");
    EXPECT_EQ(result.propertyOrigins, "1<1");
    EXPECT_THAT(result.others, IsEmpty());
}

TEST(TidyNastranDialects, CardsStandBehindBeginOnly) {
    const std::string grid = "GRID           1              1.      2.      3.\n";
    const std::string bar(kBar);
    EXPECT_FALSE(tidiedNastran("BEGIN BULK\n" + grid + bar + "ENDDATA\n").isNeeded);
    EXPECT_EQ(tidiedNastran("BEGIN BULK\n" + grid + bar + "ENDDATA\n" + grid).nodeOrigins, "1<1");
    EXPECT_TRUE(tidiedNastran("BEGIN BULK\n" + grid + bar + "enddata\n" + grid).isNeeded);
    EXPECT_TRUE(tidiedNastran("CEND\n" + grid + "BEGIN BULK\n" + grid + bar).isNeeded);
    // A part of a deck may have a statement of its own, where the whole has no control.
    EXPECT_EQ(tidiedNastran("GRID,1\nBEGIN BULK\nGRID,2\n" + bar).nodeOrigins, "1<1 2<2");
}

TEST(TidyNastranDialects, LineEndsOfAllSystems) {
    const std::string deck = "SOL 101\nCEND\nBEGIN BULK\nGRID,1,,1.,2.,3.\n" + std::string(kBar);
    const std::string text = tidiedNastran(deck).text;
    for (const std::string_view end : {"\r\n", "\r"}) {
        std::string other;
        for (const char c : deck)
            other += c == '\n' ? std::string(end) : std::string(1, c);
        EXPECT_EQ(tidiedNastran(other).text, text);
    }
    const std::string plain = "GRID           1              1.      2.      3.\r" +
                              std::string(kBar.substr(0, kBar.size() - 1)) + "\r";
    const Tidied result = tidiedNastran(plain);
    EXPECT_TRUE(result.isNeeded);
    EXPECT_EQ(result.nodeOrigins, "1<1");
    EXPECT_THAT(result.notes, Contains("tidy.returns-alone"));
}

TEST(TidyNastranDialects, AByteOrderMarkMovesNothing) {
    const Tidied result = tidiedNastran(
        "\xEF\xBB\xBFGRID           1              1.      2.      3.\n" + std::string(kBar));
    EXPECT_TRUE(result.isNeeded);
    EXPECT_EQ(result.text, "BEGIN BULK\nGRID           1              1.      2.      3.\n" +
                               std::string(kBar) + "ENDDATA\n");
    EXPECT_THAT(result.notes, ElementsAre("tidy.nastran-byte-order-mark"));
}

TEST(TidyNastranDialects, PunchedDecksHaveLargeFieldsWithMarks) {
    EXPECT_EQ(
        cardsOf("$TITLE   = A BLOCK                                                    1\n"
                "GRID*                  1               0 1.000000000E+00-2.500000000E-01*      1\n"
                "*      1 3.000000000E+00               0\n"
                "PSHELL*                7               3 1.250000000E+00               3*      2\n"
                "*      2\n"),
        "GRID           1              1.    -.25      3.\n"
        "PSHELL         1       3    1.25\n");
}

TEST(TidyNastranDialects, Tabs) {
    EXPECT_EQ(cardsOf("GRID\t1\t\t.5\t-2.\t3.\t\t\n"
                      "GRID*\t2\t\t0\t\t.5\t\t-2.\n*\t3.\n"
                      "GRID,\t3,,.5 ,\t-2.,3.\n"),
              "GRID           1              .5     -2.      3.\n"
              "GRID           2              .5     -2.      3.\n"
              "GRID           3              .5     -2.      3.\n");
}

}  // namespace
