/// Lines of Abaqus decks in every form that means the same.
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "tidy/tidied.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Tidied tidied(std::string_view deck) {
    return tidyText(deck, CKVODeckTidy::kAbaqus);
}

// What all forms of one triangle come to.
constexpr std::string_view kTriangle =
    "** Tidy deck\n"
    "*NODE\n"
    "1, 0, 0, 0\n"
    "2, 1.5, 0, 0\n"
    "3, 0, 1, 0\n"
    "*ELEMENT, TYPE=S3, ELSET=SKIN\n"
    "7, 1, 2, 3\n";

TEST(TidyAbaqusGrammar, APlainDeckNeedsNothing) {
    constexpr std::string_view kDeck =
        "*HEADING\n\na part\n*Node\n1, 0, 0, 0\n 2, 1.5,0.,0.\n3, 0, 1.\n"
        "*Element, type=S3, elset=Skin\n7, 1, 2,\n3\n*MATERIAL, NAME=\"A, B\"\n";
    const Tidied deck = tidied(kDeck);
    EXPECT_TRUE(deck.isDone);
    EXPECT_FALSE(deck.isNeeded);
    EXPECT_EQ(deck.text, kDeck);
    EXPECT_THAT(deck.others, IsEmpty());
    EXPECT_EQ(deck.nodeOrigins, "1<1 2<2 3<3");
    EXPECT_EQ(deck.elementOrigins, "7<7");
}

TEST(TidyAbaqusGrammar, ValuesMayHoldTheNamesOfParameters) {
    EXPECT_FALSE(tidied("*ELEMENT, TYPE=C3D4, ELSET=ELSET1_TYPE\n1,1,2,3,4\n").isNeeded);
    EXPECT_FALSE(tidied("*ELEMENT, TYPE=C3D4, ELSET=A TYPE B\n1,1,2,3,4\n").isNeeded);
    const Tidied deck = tidied("*ELEMENT, ELSET=A TYPE B, TYPE=C3D4\n1,1,2,3,4\n");
    EXPECT_EQ(deck.text,
              "** Tidy deck\n*NODE\n*ELEMENT, TYPE=C3D4, ELSET=A TYPE B\n1, 1, 2, 3, 4\n");
}

TEST(TidyAbaqusGrammar, ATidyDeckStaysAsItIs) {
    const Tidied deck = tidied(kTriangle);
    EXPECT_TRUE(deck.isDone);
    EXPECT_FALSE(deck.isNeeded);
    EXPECT_EQ(deck.text, kTriangle);
    EXPECT_THAT(deck.notes, IsEmpty());
}

struct Form {
    std::string_view deck;
    std::string_view code;
};

TEST(TidyAbaqusGrammar, EveryFormComesToThePlainOne) {
    constexpr Form kForms[] = {
        {"*NODE\n1,0,0,0\n\n2,1.5,0,0\n3,0,1,0\n*ELEMENT,TYPE=S3,ELSET=SKIN\n7,1,2,3\n",
         "tidy.abaqus-blank-line"},
        {"\xEF\xBB\xBF*NODE\n1,0,0,0\n2,1.5,0,0\n3,0,1,0\n*ELEMENT,TYPE=S3,ELSET=SKIN\n7,1,2,3\n",
         "tidy.abaqus-byte-order-mark"},
        {"*NODE\n1,\t0,0,0\n2,1.5,0,0\n3,0,1,0\n*ELEMENT,TYPE=S3,ELSET=SKIN\n7,\t1,2,3\n",
         "tidy.abaqus-tab"},
        {"*NODE\n1,0,0,0\n2,1.5,0,0\n3,0,1,0\n  *ELEMENT,TYPE=S3,ELSET=SKIN\n7,1,2,3\n",
         "tidy.abaqus-keyword-indented"},
        {"*NODE\n1,0,0,0\n2,1.5,0,0\n3,0,1,0\n*ELEMENT,TYPE=S3,\nELSET=SKIN\n7,1,2,3\n",
         "tidy.abaqus-keyword-continued"},
        {"*NODE\n1,0,0,0\n2,1.5,0,0\n3,0,1,0\n*ELEMENT, ELSET = \"Skin\", TYPE = s3\n7,1,2,3\n",
         "tidy.abaqus-keyword-form"},
        {"*NODE\n1,0,0,0\n2,15.D-1,0,0\n3,,1,0\n*ELEMENT,TYPE=S3,ELSET=SKIN\n7,1,2,3\n",
         "tidy.abaqus-number-form"},
        {"*NODE\n1,0,0,0\n2,1.5,0,0\n3,0,1,0\n*ELEMENT,TYPE=S3,ELSET=SKIN\n7,1,\n** 5,\n2,3\n",
         "tidy.abaqus-comment-inside"},
        {"*NODE\n1,0,0,0\n2,1.5,0,0\n3,0,1,0\n*ELEMENT,TYPE=STRI65,ELSET=SKIN\n7,1,2,3,4,5,6\n",
         "tidy.abaqus-type-changed"},
    };
    for (const Form& form : kForms) {
        SCOPED_TRACE(form.code);
        const Tidied deck = tidied(form.deck);
        EXPECT_TRUE(deck.isDone);
        EXPECT_TRUE(deck.isNeeded);
        EXPECT_EQ(deck.text, kTriangle);
        EXPECT_THAT(deck.notes, ElementsAre(form.code));
        EXPECT_THAT(deck.others, IsEmpty());
    }
}

TEST(TidyAbaqusGrammar, ALongLineIsReadWhole) {
    const Tidied deck = tidied("*NODE\n1,0,0,0\n2," + std::string(600, ' ') +
                               "1.5,0,0\n3,0,1,0\n*ELEMENT,TYPE=S3,ELSET=SKIN\n7,1,2,3\n");
    EXPECT_EQ(deck.text, kTriangle);
    EXPECT_THAT(deck.notes, ElementsAre("tidy.abaqus-line-split"));
}

TEST(TidyAbaqusGrammar, FilesArePutWhereTheyAreNamed) {
    const TempFolder folder;
    folder.write("nodes.inc", "1,0,0,0\n2,1.5,0,0\n");
    folder.write("Mesh.inc", "*ELEMENT,TYPE=S3,ELSET=SKIN,INPUT=elements.inc\n");
    folder.write("elements.inc", "7,1,2,3\n");
    folder.write("deck",
                 "*NODE\n*INCLUDE, INPUT=nodes.inc\n3,0,1,0\n*Include, input=\"Mesh.inc\"\n");
    const Tidied deck = tidyFile(folder, "deck", CKVODeckTidy::kAbaqus);
    EXPECT_TRUE(deck.isDone);
    EXPECT_EQ(deck.text, kTriangle);
    EXPECT_THAT(deck.notes, ElementsAre("tidy.included", "tidy.included", "tidy.included"));
}

TEST(TidyAbaqusGrammar, DataOfSetsAndSurfacesMayStandInFiles) {
    const TempFolder folder;
    folder.write("a.inc", "7, 8\n");
    folder.write("nodes.inc", "1, 3\n");
    folder.write("faces.inc", "A, S1\n");
    folder.write("deck",
                 "*NODE\n1,0,0,0\n2,4,0,0\n3,2,0,0\n*ELEMENT,TYPE=C3D4\n7,1,2,3,1\n8,1,2,3,1\n"
                 "*ELSET,ELSET=A,INPUT=a.inc\n*NSET,NSET=N,INPUT=nodes.inc\n"
                 "*NCOPY,OLD SET=N,CHANGE NUMBER=10,SHIFT\n1,0,0\n"
                 "*SURFACE,NAME=S,INPUT=faces.inc\n");
    const Tidied deck = tidyFile(folder, "deck", CKVODeckTidy::kAbaqus);
    EXPECT_EQ(deck.text,
              "** Tidy deck\n*NODE\n1, 0, 0, 0\n2, 4, 0, 0\n3, 2, 0, 0\n11, 1, 0, 0\n13, 3, 0, 0\n"
              "*ELEMENT, TYPE=C3D4\n7, 1, 2, 3, 1\n8, 1, 2, 3, 1\n*ELSET, ELSET=A\n7, 8\n"
              "*SURFACE, TYPE=ELEMENT, NAME=S\nA, S1\n");
}

TEST(TidyAbaqusGrammar, FilesNameFoldersAsOtherSystemsDo) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.file("mesh"));
    folder.write("mesh/nodes.inc", "1,0,0,0\n2,1.5,0,0\n3,0,1,0\n");
    folder.write("deck",
                 "*NODE\n*INCLUDE, INPUT=.\\MESH\\Nodes.inc\n*ELEMENT, TYPE=S3, ELSET=SKIN\n"
                 "7, 1, 2, 3\n");
    EXPECT_EQ(tidyFile(folder, "deck", CKVODeckTidy::kAbaqus).text, kTriangle);
}

TEST(TidyAbaqusGrammar, CommentsMayStandBetweenTheLinesOfAKeyword) {
    const Tidied deck = tidied(
        "*NODE\n1,0,0,0\n2,1.5,0,0\n3,0,1,0\n*ELEMENT,\n** of the skin\nTYPE=S3,\n  ELSET=SKIN\n"
        "7,1,2,3\n");
    EXPECT_EQ(deck.text, kTriangle);
}

TEST(TidyAbaqusGrammar, ACommaAtTheEndOfAKeywordMayMeanNothing) {
    const Tidied deck = tidied(
        "*NODE,\n1,0,0,0\n*ELEMENT,TYPE=C3D4,ELSET=A,\n7,1,1,1,1\n*ELSET,ELSET=B,\nA,7\n"
        "*ELSET,ELSET=C,\nGENERATE\n5,9\n");
    EXPECT_EQ(deck.text,
              "** Tidy deck\n*NODE\n1, 0, 0, 0\n*ELEMENT, TYPE=C3D4, ELSET=A\n7, 1, 1, 1, 1\n"
              "*ELSET, ELSET=B\n7\n*ELSET, ELSET=C\n7\n");
}

// The x coordinate of a node that is given as <x>.
std::string coordinateOf(const std::string& definitions) {
    const Tidied deck = tidied("*PARAMETER\n" + definitions + "*NODE\n1, <x>\n");
    const std::string head = "** Tidy deck\n*NODE\n1, ";
    return deck.text.starts_with(head)
               ? deck.text.substr(head.size(), deck.text.find(',', head.size()) - head.size())
               : "";
}

TEST(TidyAbaqusGrammar, ParametersHaveValues) {
    EXPECT_EQ(coordinateOf("x = 2.5  # mm\n"), "2.5");
    EXPECT_EQ(coordinateOf("a = 3\nX = -a * (1.5 + 2) / 2 - 1e-1\n"), "-5.35");
    EXPECT_EQ(coordinateOf("x = 2 ** 3 ** 2 - -2**2\n"), "516");
    EXPECT_EQ(coordinateOf("x = sqrt(16.) + sin(pi / 2) + int(2.9)\n"), "7");
    EXPECT_EQ(coordinateOf("x = 6 / 3\n"), "2");
    EXPECT_EQ(coordinateOf("x = 1\nx = x + 1\n"), "2");
    for (const char* const unclear : {"x = 3 / 2\n", "x = y\n", "x = (1\n", "x = 1 / 0.\n",
                                      "x = 'a'\n", "x = [1]\n", "x\n", "= 1\n"})
        EXPECT_EQ(coordinateOf(unclear), "") << unclear;
}

TEST(TidyAbaqusGrammar, ParametersStandInAllLines) {
    const Tidied deck = tidied(
        "*PARAMETER\nwide = 1.5\nskin = 'SKIN'\nfirst = 7\n*NODE\n1,0,0,0\n2,<wide>,0,0\n"
        "3,0,1,0\n*ELEMENT,TYPE=S3,ELSET=<skin>\n<first>,1,2,3\n*ELASTIC\n<modulus>\n");
    EXPECT_EQ(deck.text, kTriangle);
    EXPECT_THAT(deck.notes, ElementsAre("tidy.abaqus-parameter", "tidy.abaqus-keyword-unread"));
    EXPECT_THAT(tidied("*NODE\n1, 0, <x>\n").others, ElementsAre("2:7 tidy.abaqus-number-invalid"));
}

TEST(TidyAbaqusGrammar, AMissingFileIsAnErrorAndNothingIsWritten) {
    const Tidied deck = tidied("*NODE\n1,0,0,0\n*INCLUDE, INPUT=none.inc\n");
    EXPECT_FALSE(deck.isDone);
    EXPECT_EQ(deck.text, "");
    EXPECT_THAT(deck.others, ElementsAre("3:1 tidy.include-missing"));
}

TEST(TidyAbaqusGrammar, NumbersKeepTheirValue) {
    const Tidied deck = tidied(
        "*NODE\n\n1, 0.1, 1e-5, -123456789.125\n2, 0.30000000000000004, 1e300, .0001\n"
        "3, 1d2, -0.02, 2.5e-9\n");
    EXPECT_EQ(deck.text,
              "** Tidy deck\n*NODE\n1, 0.1, 1e-05, -123456789.125\n"
              "2, 0.30000000000000004, 1e+300, 0.0001\n3, 100, -0.02, 2.5e-09\n");
    EXPECT_EQ(deck.deviation, 0.0);
}

TEST(TidyAbaqusGrammar, WhatIsNoNumberIsAnErrorWithItsPlace) {
    EXPECT_THAT(tidied("*NODE\n1, x, 0, 0\n").others,
                ElementsAre("2:4 tidy.abaqus-number-invalid"));
    EXPECT_THAT(tidied("*NODE\n1, 0, 1e999, 0\n").others,
                ElementsAre("2:7 tidy.abaqus-number-invalid"));
    EXPECT_THAT(tidied("*ELEMENT, TYPE=C3D4\n1, 1, 2,\n*STEP\n").others,
                ElementsAre("2:1 tidy.abaqus-element-incomplete"));
    EXPECT_THAT(tidied("*ELEMENT, TYPE=C3D4\n\n  1, 1, 2,\n").others,
                ElementsAre("3:3 tidy.abaqus-element-incomplete"));
    EXPECT_THAT(tidied("*ELEMENT, TYPE=C3D4\n1, 1, 2.5, 3, 4\n").others,
                ElementsAre("2:7 tidy.abaqus-number-invalid"));
    EXPECT_THAT(tidied("*ELSET, ELSET=A, GENERATE\n1, 5, x\n").others,
                ElementsAre("2:7 tidy.abaqus-number-invalid"));
}

TEST(TidyAbaqusGrammar, WhatIsNoDecimalNumberIsAnError) {
    for (const char* const coordinate : {"0x1F", "-0X2", "inf", "nan", ".", "-", "1.5e3x", "1 2"}) {
        const Tidied deck = tidied(std::string("*NODE\n1, 0, ") + coordinate + ", 0\n");
        EXPECT_FALSE(deck.isDone) << coordinate;
        EXPECT_THAT(deck.others, ElementsAre("2:7 tidy.abaqus-number-invalid")) << coordinate;
    }
}

TEST(TidyAbaqusGrammar, NumbersInTheFormsOfTheReaderNeedNothing) {
    constexpr std::string_view kDeck =
        "*NODE\n0000001, +0.5, -.5, 5.\n 2147483647 , 1e3 , 1.E-3,12345678.12345678\n3,0,0\n";
    const Tidied deck = tidied(kDeck);
    EXPECT_TRUE(deck.isDone);
    EXPECT_FALSE(deck.isNeeded);
    EXPECT_EQ(deck.nodeOrigins, "1<1 2147483647<2147483647 3<3");
}

TEST(TidyAbaqusGrammar, ElementsOfUnreadTypesAreCountedAndLeftOut) {
    const Tidied deck = tidied("*NODE\n\n1,0,0,0\n*ELEMENT, TYPE=B31\n1,1,1\n2,1,1\n");
    EXPECT_TRUE(deck.isDone);
    EXPECT_EQ(deck.text, "** Tidy deck\n*NODE\n1, 0, 0, 0\n");
    EXPECT_THAT(deck.others, ElementsAre("5:1 tidy.abaqus-type-unread"));
}

TEST(TidyAbaqusGrammar, ShellsAndSolidsWithFurtherNodesComeByWhatTheReaderHolds) {
    const Tidied deck = tidied(
        "*ELEMENT, TYPE=S8R\n1,1,2,3,4,5,6,7,8\n*ELEMENT, TYPE=R3D4\n2,1,2,3,4\n"
        "*ELEMENT, TYPE=C3D27\n3,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,\n"
        "16,17,18,19,20,21,22,23,24,25,26,27\n");
    EXPECT_EQ(deck.text,
              "** Tidy deck\n*NODE\n*ELEMENT, TYPE=S4\n1, 1, 2, 3, 4\n*ELEMENT, TYPE=S4\n"
              "2, 1, 2, 3, 4\n*ELEMENT, TYPE=C3D20\n"
              "3, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15,\n16, 17, 18, 19, 20\n");
}

TEST(TidyAbaqusGrammar, WhatIsDefinedAgainCountsAsDefinedLast) {
    const Tidied deck = tidied("*NODE\n1,0,0,0\n1,5,0,0\n*ELEMENT, TYPE=S3\n1,1,1,1\n1,1,1,2\n");
    EXPECT_EQ(deck.text, "** Tidy deck\n*NODE\n1, 5, 0, 0\n*ELEMENT, TYPE=S3\n1, 1, 1, 2\n");
    EXPECT_THAT(deck.others,
                ElementsAre("3:1 tidy.abaqus-node-repeated", "6:1 tidy.abaqus-element-repeated"));
}

}  // namespace
}  // namespace kvocaeio::test
