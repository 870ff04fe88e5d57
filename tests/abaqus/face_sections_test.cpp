/// Surfaces and distributed loads, as the log shows them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "abaqus/imported_deck.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The surface part of the log behind its count.
std::string surfacesOf(const std::string& deck) {
    return ImportedDeck(deck).logOf(LogPart::kSurfaces);
}

/// The entries that the data lines of one surface give.
std::string facesOf(const std::string& dataLines) {
    const std::string part = surfacesOf("*SURFACE, TYPE=ELEMENT, NAME=N\n" + dataLines);
    const std::string before =
        "Surface Section count = 1\n"
        "----Surface Section 0------\n"
        "type = ELEMENT , name = N\n";
    return part.starts_with(before) ? part.substr(before.size()) : part;
}

/// The entries that the data lines of one load block give.
std::string loadsOf(const std::string& dataLines) {
    const std::string part = ImportedDeck("*DLOAD\n" + dataLines).logOf(LogPart::kDloads);
    const std::string before =
        "Dload Section count = 1\n"
        "----Dload Section 0------\n";
    return part.starts_with(before) ? part.substr(before.size()) : part;
}

std::string surfaceNameOf(const std::string& keywordLine) {
    const std::string part = surfacesOf(keywordLine + "\n");
    const std::size_t begin = part.find(" , name = ") + 10;
    return part.substr(begin, part.find('\n', begin) - begin);
}

/// True when a deck is read on behind this keyword line.
bool readsOnBehind(const std::string& keywordLine) {
    ImportedDeck deck(keywordLine + "\n1, S1\n*NODE\n1, 1, 2, 3\n");
    EXPECT_TRUE(deck.result);
    return deck.reader.GetNodeNum() == 1;
}

TEST(SurfaceSection, EntriesAreItemAndFace) {
    EXPECT_EQ(surfacesOf("*SURFACE, TYPE=ELEMENT, NAME=TOP\nSET-1, S1\n12, SPOS\n"),
              "Surface Section count = 1\n"
              "----Surface Section 0------\n"
              "type = ELEMENT , name = TOP\n"
              "SET-1, S1\n"
              "12, SPOS\n");
}

TEST(SurfaceSection, DataLinesAreFoldedToUpperCase) {
    EXPECT_EQ(facesOf("rib, s2\n"), "RIB, S2\n");
}

TEST(SurfaceSection, TokensBehindTheFaceAreIgnored) {
    EXPECT_EQ(facesOf(" ,A  S1,B,S2\n"), "A, S1\n");
}

TEST(SurfaceSection, OneTokenHasAnEmptyFace) {
    EXPECT_EQ(facesOf("A\nB, S1\n,C,\n"), "A, \nB, S1\nC, \n");
}

TEST(SurfaceSection, BlankLinesAndCommentsGiveNoEntry) {
    EXPECT_EQ(facesOf("\nA, S1\n** B, S2\n , \nC, S3\n"), "A, S1\nC, S3\n");
}

TEST(SurfaceSection, TheNameKeepsItsBlanks) {
    EXPECT_EQ(surfaceNameOf("*SURFACE, TYPE=ELEMENT, NAME=Top side "), "TOP SIDE ");
    EXPECT_EQ(surfaceNameOf("*Surface, name= A, type=element"), " A");
}

TEST(SurfaceSection, WithoutANameItIsEmpty) {
    EXPECT_EQ(surfaceNameOf("*SURFACE, TYPE=ELEMENT"), "");
    EXPECT_EQ(surfaceNameOf("*SURFACE, TYPE=ELEMENT, NAME"), "");
    EXPECT_EQ(surfaceNameOf("*SURFACE, TYPE=ELEMENT, NAME="), "");
}

TEST(SurfaceSection, TheTypeEndsAtABlank) {
    EXPECT_TRUE(readsOnBehind("*SURFACE, TYPE = ELEMENT , NAME=A"));
    EXPECT_TRUE(readsOnBehind("*SURFACE, TYPE=  element set, NAME=A"));
    EXPECT_TRUE(readsOnBehind("*SURFACE, NAME=A, TYPE=, ELEMENT"));
}

TEST(SurfaceSection, AnyOtherTypeEndsTheReading) {
    for (const char* line :
         {"*SURFACE", "*SURFACE, NAME=A", "*SURFACE, TYPE=NODE, NAME=A", "*SURFACE, TYPE=ELEMENTS",
          "*SURFACE, TYPE", "*SURFACE, TYPE=", "*SURFACE, TYPE=, NAME=ELEMENT",
          "*SURFACE, TYPE=ELEMENT\tX", "*SURFACE, TYPE=NODE, TYPE=ELEMENT", "*SURFACE, ELEMENT",
          "*SURFACE, NAME=TYPE, TYPE=ELEMENT"})
        EXPECT_FALSE(readsOnBehind(line)) << line;
}

TEST(SurfaceSection, WhereTheReadingEndsWhatCameBeforeStays) {
    ImportedDeck deck(
        "*NODE\n1, 1, 2, 3\n"
        "*SURFACE, TYPE=ELEMENT, NAME=A\n1, S1\n"
        "*SURFACE, TYPE=NODE, NAME=B\n1\n"
        "*NODE\n2, 4, 5, 6\n"
        "*ELEMENT, TYPE=S3\n1, 1, 1, 1\n");
    EXPECT_TRUE(deck.result);
    EXPECT_THAT(deck.nodes(), ElementsAre(Node{1, 1, 2, 3}));
    EXPECT_THAT(deck.sections(), IsEmpty());
    EXPECT_EQ(deck.logOf(LogPart::kSurfaces),
              "Surface Section count = 1\n"
              "----Surface Section 0------\n"
              "type = ELEMENT , name = A\n"
              "1, S1\n");
    EXPECT_EQ(printedPass(deck.printed, 1),
              "Reading Node Section...\n"
              "Reading Surface Section...\n"
              "Reading Surface Section...\n");
    EXPECT_EQ(printedSummary(deck.printed),
              "Node Section num = 1\n"
              "  Node Block [0] = 1\n"
              "Elem Section num = 0\n"
              "Shell Section num = 0\n"
              "Surface Section num = 1\n"
              "Dload Section num = 0\n"
              "Elset Section num = 0\n");
    EXPECT_EQ(printedPass(deck.printed, 2), printedPass(deck.printed, 1));
}

TEST(DloadSection, EntriesAreOidLabelAndValue) {
    EXPECT_EQ(loadsOf("12, P1, 1.5\n-3 P 2e2\n"),
              "elemID = 12 , faceIdx = P1 , value = 1.500000\n"
              "elemID = -3 , faceIdx = P , value = 200.000000\n");
}

TEST(DloadSection, TheLabelKeepsItsCase) {
    EXPECT_EQ(loadsOf("12, p1nu, 1\n"), "elemID = 12 , faceIdx = p1nu , value = 1.000000\n");
}

TEST(DloadSection, ASetNameRepeatsTheOidBefore) {
    EXPECT_EQ(loadsOf("RIB, P1, 1\n7, P2, 2\nRIB, P3, 3\n"),
              "elemID = 0 , faceIdx = P1 , value = 1.000000\n"
              "elemID = 7 , faceIdx = P2 , value = 2.000000\n"
              "elemID = 7 , faceIdx = P3 , value = 3.000000\n");
}

TEST(DloadSection, AMissingValueRepeatsTheOneBefore) {
    EXPECT_EQ(loadsOf("1, P1\n2, P2, 5\n3, P3\n4, P4, x\n"),
              "elemID = 1 , faceIdx = P1 , value = 0.000000\n"
              "elemID = 2 , faceIdx = P2 , value = 5.000000\n"
              "elemID = 3 , faceIdx = P3 , value = 5.000000\n"
              "elemID = 4 , faceIdx = P4 , value = 5.000000\n");
}

TEST(DloadSection, AMissingLabelIsEmpty) {
    EXPECT_EQ(loadsOf("1, P1, 5\n2\n"),
              "elemID = 1 , faceIdx = P1 , value = 5.000000\n"
              "elemID = 2 , faceIdx =  , value = 5.000000\n");
}

TEST(DloadSection, BlankLinesAndCommentsGiveNoEntry) {
    EXPECT_EQ(loadsOf("\n1, P1, 5\n** 2, P2, 6\n , \n3, P3, 7, 8\n"),
              "elemID = 1 , faceIdx = P1 , value = 5.000000\n"
              "elemID = 3 , faceIdx = P3 , value = 7.000000\n");
}

TEST(DloadSection, NumbersReadAsTheyDoElsewhere) {
    EXPECT_EQ(loadsOf("99999999999, P1, 1e\n1.5, P2, -.5x\n"),
              "elemID = 2147483647 , faceIdx = P1 , value = 1.000000\n"
              "elemID = 1 , faceIdx = P2 , value = -0.500000\n");
}

TEST(DloadSection, TheVariablesAreZeroAtTheStartOfEachSection) {
    EXPECT_EQ(ImportedDeck("*DLOAD, OP=NEW\n7, P1, 5\n*DLOAD\nRIB, P2\n").logOf(LogPart::kDloads),
              "Dload Section count = 2\n"
              "----Dload Section 0------\n"
              "elemID = 7 , faceIdx = P1 , value = 5.000000\n"
              "----Dload Section 1------\n"
              "elemID = 0 , faceIdx = P2 , value = 0.000000\n");
}

TEST(DloadSection, AnEmptyBlockCounts) {
    ImportedDeck deck("*DLOAD");
    EXPECT_EQ(deck.logOf(LogPart::kDloads),
              "Dload Section count = 1\n"
              "----Dload Section 0------\n");
    EXPECT_THAT(deck.printed, HasSubstr("Dload Section num = 1\n"));
}

}  // namespace
}  // namespace kvocaeio::test
