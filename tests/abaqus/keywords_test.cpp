/// Which lines are keywords, which are data, and what is passed over.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "abaqus/imported_deck.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_literals;

std::string summaryOf(std::string_view deck) {
    return printedSummary(ImportedDeck(deck).printed);
}

std::string padded(std::string line, std::size_t length) {
    line.resize(length, ' ');
    return line;
}

const char* const kEmptySummary =
    "Node Section num = 0\n"
    "Elem Section num = 0\n"
    "Shell Section num = 0\n"
    "Surface Section num = 0\n"
    "Dload Section num = 0\n"
    "Elset Section num = 0\n";

TEST(Keywords, EmptyDeckGivesTrueAndNothing) {
    ImportedDeck deck("");
    EXPECT_TRUE(deck.result);
    EXPECT_EQ(printedSummary(deck.printed), kEmptySummary);
    EXPECT_FALSE(deck.reader.GetNodeBegin());
    EXPECT_FALSE(deck.reader.GetElemSecBegin());
    EXPECT_FALSE(deck.reader.GetShellSecBegin());
}

TEST(Keywords, CaseDoesNotMatter) {
    EXPECT_THAT(ImportedDeck("*Node\n1,1,2,3\n").nodes(), ElementsAre(Node{1, 1, 2, 3}));
    EXPECT_THAT(ImportedDeck("*node\n1,1,2,3\n").nodes(), ElementsAre(Node{1, 1, 2, 3}));
    EXPECT_EQ(summaryOf("*element,type=s3\n*Elset,elset=a\n*surFACE,type=element\n*dLoad\n"
                        "*shell Section, material=m\n"),
              "Node Section num = 0\n"
              "Elem Section num = 1\n"
              "  Elem Block [0] = 0\n"
              "Shell Section num = 1\n"
              "Surface Section num = 1\n"
              "Dload Section num = 1\n"
              "Elset Section num = 1\n");
}

TEST(Keywords, BlanksAroundTheFirstFieldAreTrimmed) {
    EXPECT_THAT(ImportedDeck("  *node ,NSET=ALL\n7,1,2,3\n").nodes(),
                ElementsAre(Node{7, 1, 2, 3}));
    EXPECT_THAT(ImportedDeck("*NODE, NSET=ALL\n7,1,2,3\n").nodes(), ElementsAre(Node{7, 1, 2, 3}));
}

TEST(Keywords, LeadingCommasBelongToNoField) {
    EXPECT_THAT(ImportedDeck(",,*NODE\n7,1,2,3\n").nodes(), ElementsAre(Node{7, 1, 2, 3}));
}

TEST(Keywords, TheWholeFieldMustBeEqual) {
    for (const char* line :
         {"*NODE PRINT", "*NODES", "*NODE=1", "* NODE", "*NODE\t", "NODE", "**NODE",
          "*ELEMENT OUTPUT", "*ELSETS", "*SURFACE INTERACTION", "*DLOAD X",
          "*SHELL  SECTION, MATERIAL=M", "*SHELLSECTION, MATERIAL=M",
          "*SHELL GENERAL SECTION, MATERIAL=M", "*NSET, NSET=N", "*SOLID SECTION, MATERIAL=M",
          "*NODE OUTPUT", "*NODE FILE", "*HEADING"})
        EXPECT_EQ(summaryOf(line + "\n1, 2, 3, 4\n"s), kEmptySummary) << line;
}

TEST(Keywords, UnknownKeywordsAreSkippedWithTheirDataLines) {
    ImportedDeck deck(
        "*HEADING\n"
        "a part\n"
        "*NSET, NSET=N\n"
        "1, 2\n"
        "*NODE\n"
        "1, 1, 2, 3\n"
        "*NODE PRINT\n"
        "U\n"
        "8, 8, 8, 8\n"
        "*NODE\n"
        "2, 4, 5, 6\n");
    EXPECT_THAT(deck.nodes(), ElementsAre(Node{1, 1, 2, 3}, Node{2, 4, 5, 6}));
}

TEST(Keywords, LinesBeforeTheFirstKeywordAreSkipped) {
    EXPECT_THAT(ImportedDeck("1, 2, 3, 4\n** note\n\nmore\n*NODE\n5, 1, 2, 3\n").nodes(),
                ElementsAre(Node{5, 1, 2, 3}));
}

TEST(Keywords, LinesOfCommasAndLineEndsArePassedOver) {
    EXPECT_THAT(ImportedDeck("\n,,,\n\r\n , \n*NODE\n5, 1, 2, 3\n").nodes(),
                ElementsAre(Node{5, 1, 2, 3}));
}

TEST(Keywords, ABlankBeforeTheAsteriskIsSeenByTheDriverOnly) {
    // Directly before the driver: at the start, and behind a line without a field.
    EXPECT_THAT(ImportedDeck(" *NODE\n1,1,2,3\n").nodes(), ElementsAre(Node{1, 1, 2, 3}));
    EXPECT_THAT(ImportedDeck(",\n\n *NODE\n1,1,2,3\n").nodes(), ElementsAre(Node{1, 1, 2, 3}));
    // While unknown lines are skipped it is one of them.
    EXPECT_THAT(ImportedDeck("junk\n *NODE\n1,1,2,3\n").nodes(), IsEmpty());
    EXPECT_THAT(ImportedDeck("** note\n *NODE\n1,1,2,3\n").nodes(), IsEmpty());
    // In a section it is a data line.
    EXPECT_THAT(ImportedDeck("*NODE\n1,1,2,3\n *NODE\n2,4,5,6\n").nodes(),
                ElementsAre(Node{1, 1, 2, 3}, Node{0, 0, 0, 0}, Node{2, 4, 5, 6}));
}

TEST(Keywords, CommentsBeforeAKeywordChangeNothing) {
    EXPECT_THAT(ImportedDeck("*NODE\n1,1,2,3\n** a\n** b\n*NODE\n2,4,5,6\n** c\n").nodes(),
                ElementsAre(Node{1, 1, 2, 3}, Node{2, 4, 5, 6}));
    EXPECT_THAT(ImportedDeck("** a\n** b\nx\n** c\n** d\n*NODE\n2,4,5,6\n").nodes(),
                ElementsAre(Node{2, 4, 5, 6}));
}

TEST(Keywords, AnAsteriskAloneEndsASection) {
    EXPECT_THAT(ImportedDeck("*NODE\n1,1,2,3\n*\n2,4,5,6\n").nodes(),
                ElementsAre(Node{1, 1, 2, 3}));
    EXPECT_THAT(ImportedDeck("*NODE\n1,1,2,3\n*").nodes(), ElementsAre(Node{1, 1, 2, 3}));
}

TEST(Keywords, CrLfReadsAsLf) {
    ImportedDeck deck(
        "*NODE, NSET=N\r\n"
        "1, 1, 2, 3\r\n"
        "*ELEMENT, TYPE=S3, ELSET=A\r\n"
        "9, 1, 1,\r\n"
        "1\r\n"
        "*SHELL SECTION, MATERIAL=M, ELSET=A\r\n"
        "0.5\r\n");
    EXPECT_THAT(deck.nodes(), ElementsAre(Node{1, 1, 2, 3}));
    EXPECT_THAT(deck.sections(), ElementsAre(Section{"A", 1, 3, {9}, {1, 1, 1}}));
    EXPECT_THAT(deck.shellSections(), ElementsAre(ShellThickness{"A", 0.5}));
}

TEST(Keywords, ALoneCrEndsFieldsButNotLines) {
    EXPECT_THAT(ImportedDeck("*NODE\r1, 1, 2, 3\n2, 4, 5, 6\n").nodes(),
                ElementsAre(Node{2, 4, 5, 6}));
    EXPECT_THAT(ImportedDeck("*NODE\n1, 1, 2, 3\r*NODE\n").nodes(), ElementsAre(Node{1, 1, 2, 3}));
    EXPECT_THAT(ImportedDeck("\r*NODE\n1, 1, 2, 3\n").nodes(), ElementsAre(Node{1, 1, 2, 3}));
}

TEST(Keywords, ANulByteHidesTheRestOfItsLine) {
    EXPECT_THAT(ImportedDeck("*NODE\0 PRINT\n1,1,2,3\n"s).nodes(), ElementsAre(Node{1, 1, 2, 3}));
    EXPECT_THAT(ImportedDeck("*NODE\n1,1\0,2,3\n2,4,5,6\n"s).nodes(),
                ElementsAre(Node{1, 1, 0, 0}, Node{2, 4, 5, 6}));
    EXPECT_THAT(ImportedDeck("*NODE\n\0*NODE\n2,4,5,6\n"s).nodes(),
                ElementsAre(Node{0, 0, 0, 0}, Node{2, 4, 5, 6}));
    EXPECT_THAT(ImportedDeck("*NODE\n1,1,2,3\n*\0x\n2,4,5,6\n"s).nodes(),
                ElementsAre(Node{1, 1, 2, 3}));
}

TEST(Keywords, A1ABytePassesLikeAnyOther) {
    EXPECT_THAT(ImportedDeck("*NODE\n\x1a\n2,4,5,6\n"s).nodes(),
                ElementsAre(Node{0, 0, 0, 0}, Node{2, 4, 5, 6}));
}

TEST(Keywords, TheLastLineNeedsNoLineEnd) {
    EXPECT_THAT(ImportedDeck("*NODE\n1,1,2,3").nodes(), ElementsAre(Node{1, 1, 2, 3}));
    EXPECT_EQ(summaryOf("*NODE"),
              "Node Section num = 1\n"
              "  Node Block [0] = 0\n"
              "Elem Section num = 0\n"
              "Shell Section num = 0\n"
              "Surface Section num = 0\n"
              "Dload Section num = 0\n"
              "Elset Section num = 0\n");
}

TEST(LongLines, KeywordLineOf510CharactersIsOneLine) {
    EXPECT_THAT(ImportedDeck(padded("*NODE", 510) + "\n1,1,2,3\n").nodes(),
                ElementsAre(Node{1, 1, 2, 3}));
}

TEST(LongLines, KeywordLineOf511CharactersLeavesItsLineEndAsADataLine) {
    EXPECT_THAT(ImportedDeck(padded("*NODE", 511) + "\n1,1,2,3\n").nodes(),
                ElementsAre(Node{0, 0, 0, 0}, Node{1, 1, 2, 3}));
}

TEST(LongLines, KeywordLineOf512CharactersLeavesItsRestAsADataLine) {
    EXPECT_THAT(ImportedDeck(padded("*NODE", 511) + "6\n1,1,2,3\n").nodes(),
                ElementsAre(Node{6, 0, 0, 0}, Node{1, 1, 2, 3}));
}

TEST(LongLines, TheLineEndCountsWithCrLfToo) {
    EXPECT_THAT(ImportedDeck(padded("*NODE", 509) + "\r\n1,1,2,3\r\n").nodes(),
                ElementsAre(Node{1, 1, 2, 3}));
    EXPECT_THAT(ImportedDeck(padded("*NODE", 510) + "\r\n1,1,2,3\r\n").nodes(),
                ElementsAre(Node{0, 0, 0, 0}, Node{1, 1, 2, 3}));
}

TEST(LongLines, ANodeLineOfTwoPiecesIsTwoNodes) {
    EXPECT_THAT(ImportedDeck("*NODE\n" + padded("1, 1, 2, 3", 511) + "8, 4, 5, 6\n").nodes(),
                ElementsAre(Node{1, 1, 2, 3}, Node{8, 4, 5, 6}));
    EXPECT_THAT(ImportedDeck("*NODE\n" + padded("1, 1, 2, 3", 1022) + "\n").nodes(),
                ElementsAre(Node{1, 1, 2, 3}, Node{0, 0, 0, 0}, Node{0, 0, 0, 0}));
    EXPECT_THAT(ImportedDeck("*NODE\n" + padded("1, 1, 2, 3", 1021) + "\n").nodes(),
                ElementsAre(Node{1, 1, 2, 3}, Node{0, 0, 0, 0}));
}

TEST(LongLines, AnElementLineOfTwoPiecesIsTwoElements) {
    EXPECT_THAT(
        ImportedDeck("*ELEMENT, TYPE=S3\n" + padded("1, 1, 2, 3", 511) + "8, 4, 5, 6\n").sections(),
        ElementsAre(Section{"", 1, 3, {1, 8}, {1, 2, 3, 4, 5, 6}}));
}

TEST(LongLines, ANumberCutByTheBoundIsTwoNumbers) {
    EXPECT_THAT(ImportedDeck("*NODE\n" + padded("1,", 509) + "12345, 3\n").nodes(),
                ElementsAre(Node{1, 12, 0, 0}, Node{345, 3, 0, 0}));
}

TEST(LongLines, TheRestOfALongCommentIsAnyLine) {
    EXPECT_THAT(ImportedDeck("*NODE\n" + padded("** note", 511) + "8, 4, 5, 6\n").nodes(),
                ElementsAre(Node{8, 4, 5, 6}));
    EXPECT_THAT(ImportedDeck(padded("** note", 511) + "*NODE\n8, 4, 5, 6\n").nodes(),
                ElementsAre(Node{8, 4, 5, 6}));
}

TEST(LongLines, ParametersBehindTheBoundAreLost) {
    EXPECT_THAT(ImportedDeck(padded("*ELEMENT, TYPE=S3", 511) + ", ELSET=A\n").sections(),
                ElementsAre(Section{"", 1, 3, {0}, {0, 0, 0}}));
    ImportedDeck deck(padded("*SHELL SECTION", 511) + ", MATERIAL=M\n1.0\n*NODE\n1,1,2,3\n");
    EXPECT_THAT(deck.shellSections(), IsEmpty());
    EXPECT_THAT(deck.nodes(), IsEmpty());
}

}  // namespace
}  // namespace kvocaeio::test
