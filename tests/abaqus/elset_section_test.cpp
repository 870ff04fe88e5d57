/// Element sets: names, flags, members and generated ranges, as the log shows them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "abaqus/imported_deck.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;

std::string elsetsOf(const std::string& deck) {
    return ImportedDeck(deck).logOf(LogPart::kElsets);
}

/// The three numbers that the data lines of a generated set leave, as the log shows them.
std::string rangeOf(const std::string& dataLines) {
    const std::string part = elsetsOf("*ELSET, ELSET=A, GENERATE\n" + dataLines);
    const std::string before =
        "Elset Section count = 1\n"
        "----Elset Section 0------\n"
        "Elset = A , parameter = GENERATE\n";
    return part.starts_with(before) ? part.substr(before.size()) : part;
}

/// The name that is stored of a keyword line.
std::string nameOf(const std::string& keywordLine) {
    const std::string part = elsetsOf(keywordLine + "\n");
    const std::size_t begin = part.find("Elset = ") + 8;
    return part.substr(begin, part.find(" , parameter = ") - begin);
}

TEST(ElsetSection, MembersAreTokensInDeckOrder) {
    EXPECT_EQ(elsetsOf("*ELSET, ELSET=A\n1, 2, 3,\nB\n"),
              "Elset Section count = 1\n"
              "----Elset Section 0------\n"
              "Elset = A , parameter = \n"
              "1 2 3 B \n");
}

TEST(ElsetSection, MembersAreFoldedToUpperCase) {
    EXPECT_EQ(elsetsOf("*elset, elset=Rib\nLeft, rightSide\n"),
              "Elset Section count = 1\n"
              "----Elset Section 0------\n"
              "Elset = RIB , parameter = \n"
              "LEFT RIGHTSIDE \n");
}

TEST(ElsetSection, MembersStayText) {
    EXPECT_EQ(elsetsOf("*ELSET, ELSET=A\n007 +3, 1.5e0,x=y,\tz\t\n"),
              "Elset Section count = 1\n"
              "----Elset Section 0------\n"
              "Elset = A , parameter = \n"
              "007 +3 1.5E0 X=Y \tZ\t \n");
}

TEST(ElsetSection, BlankLinesAndCommentsGiveNoMembers) {
    EXPECT_EQ(elsetsOf("*ELSET, ELSET=A\n\n1\n** 2\n , ,\n3\n"),
              "Elset Section count = 1\n"
              "----Elset Section 0------\n"
              "Elset = A , parameter = \n"
              "1 3 \n");
}

TEST(ElsetSection, ASetWithoutMembersShowsAnEmptyLine) {
    EXPECT_EQ(elsetsOf("*ELSET, ELSET=A\n*ELSET, ELSET=B\n1\n"),
              "Elset Section count = 2\n"
              "----Elset Section 0------\n"
              "Elset = A , parameter = \n"
              "\n"
              "----Elset Section 1------\n"
              "Elset = B , parameter = \n"
              "1 \n");
}

TEST(ElsetSection, ASetOfTheSameNameIsARecordOfItsOwn) {
    EXPECT_EQ(elsetsOf("*ELSET, ELSET=A\n1\n*ELSET, ELSET=A\n2\n"),
              "Elset Section count = 2\n"
              "----Elset Section 0------\n"
              "Elset = A , parameter = \n"
              "1 \n"
              "----Elset Section 1------\n"
              "Elset = A , parameter = \n"
              "2 \n");
}

TEST(ElsetSection, TheNameEndsAtABlank) {
    EXPECT_EQ(nameOf("*ELSET, ELSET=A"), "A");
    EXPECT_EQ(nameOf("*ELSET, ELSET = A B, INSTANCE=P-1"), "A");
    EXPECT_EQ(nameOf("*ELSET, INSTANCE=P-1, ELSET=a-1"), "A-1");
    EXPECT_EQ(nameOf("*ELSET, ELSET==,A"), "A");
}

TEST(ElsetSection, WithoutANameTheRecordHasAnEmptyOne) {
    EXPECT_EQ(nameOf("*ELSET"), "");
    EXPECT_EQ(nameOf("*ELSET, INSTANCE=P-1"), "");
    EXPECT_EQ(nameOf("*ELSET, ELSET"), "");
    EXPECT_EQ(nameOf("*ELSET, ELSET= "), "");
}

TEST(ElsetSection, AMissingNameTakesTheNextWord) {
    EXPECT_EQ(nameOf("*ELSET, ELSET=, GENERATE"), "GENERATE");
    EXPECT_EQ(nameOf("*ELSET, ELSET, NAME=B"), "NAME");
}

TEST(ElsetSection, InternalSetsAreDroppedWithTheirDataLines) {
    ImportedDeck deck(
        "*ELSET, ELSET=A, INTERNAL\n1, 2\n3\n"
        "*ELSET, internal , ELSET=B, GENERATE\n1, 10, 1\n"
        "*ELSET, ELSET=C\n9\n");
    EXPECT_EQ(deck.logOf(LogPart::kElsets),
              "Elset Section count = 1\n"
              "----Elset Section 0------\n"
              "Elset = C , parameter = \n"
              "9 \n");
    EXPECT_EQ(printedPass(deck.printed, 1),
              "Reading Elset Section...\n"
              "Reading Elset Section...\n"
              "Reading Elset Section...\n");
}

TEST(ElsetSection, InternalMustBeAWholeField) {
    EXPECT_EQ(nameOf("*ELSET, ELSET=INTERNAL"), "INTERNAL");
    EXPECT_EQ(nameOf("*ELSET, ELSET=A, INTERNAL=YES"), "A");
    EXPECT_EQ(nameOf("*ELSET, ELSET=A INTERNAL"), "A");
    EXPECT_EQ(nameOf("*ELSET, ELSET=A, INTERNALS"), "A");
}

TEST(ElsetSection, BehindAnInternalSetTheDriverLooksAtTheNextLine) {
    // A blank before the asterisk is seen by the driver only, so this one is a keyword here.
    EXPECT_THAT(ImportedDeck("*ELSET, ELSET=A, INTERNAL\n *NODE\n1, 1, 2, 3\n").nodes(),
                ElementsAre(Node{1, 1, 2, 3}));
    EXPECT_THAT(ImportedDeck("*ELSET, ELSET=A, INTERNAL\n7\n *NODE\n1, 1, 2, 3\n").nodes(),
                testing::IsEmpty());
}

TEST(ElsetSection, GenerateMustBeAWholeField) {
    EXPECT_EQ(elsetsOf("*ELSET, ELSET=GENERATE\n1, 10, 2\n*ELSET, ELSET=A, GENERATED\n1, 10, 2\n"),
              "Elset Section count = 2\n"
              "----Elset Section 0------\n"
              "Elset = GENERATE , parameter = \n"
              "1 10 2 \n"
              "----Elset Section 1------\n"
              "Elset = A , parameter = \n"
              "1 10 2 \n");
}

TEST(ElsetSection, AGeneratedSetHasARangeAndNoMembers) {
    EXPECT_EQ(elsetsOf("*ELSET, ELSET=A, GENERATE\n1, 10, 2\n"),
              "Elset Section count = 1\n"
              "----Elset Section 0------\n"
              "Elset = A , parameter = GENERATE\n"
              "1, 10, 2\n");
    EXPECT_EQ(elsetsOf("*Elset,  generate  ,elset=a\n1,10,2\n"),
              "Elset Section count = 1\n"
              "----Elset Section 0------\n"
              "Elset = A , parameter = GENERATE\n"
              "1, 10, 2\n");
}

TEST(GeneratedSet, TheLastDataLineWins) {
    EXPECT_EQ(rangeOf("1, 10, 2\n20, 30, 5\n"), "20, 30, 5\n");
    EXPECT_EQ(rangeOf("1, 10, 2\n** 3, 4, 5\n"), "1, 10, 2\n");
}

TEST(GeneratedSet, WithoutADataLineItIsEmpty) {
    EXPECT_EQ(rangeOf(""), "0, -1, 1\n");
}

TEST(GeneratedSet, OneNumberIsStartAndEnd) {
    EXPECT_EQ(rangeOf("7\n"), "7, 7, 1\n");
    EXPECT_EQ(rangeOf("7,\n"), "7, 7, 1\n");
    EXPECT_EQ(rangeOf("7, x, 3\n"), "7, 7, 1\n");
}

TEST(GeneratedSet, AMissingStepIsOne) {
    EXPECT_EQ(rangeOf("7, 9\n"), "7, 9, 1\n");
    EXPECT_EQ(rangeOf("7, 9,\n"), "7, 9, 1\n");
    EXPECT_EQ(rangeOf("1, 10, 5\n7, 9\n"), "7, 9, 1\n");
}

TEST(GeneratedSet, AStepOfZeroOrBelowIsShownAsItStands) {
    EXPECT_EQ(rangeOf("7, 9, 0\n"), "7, 9, 0\n");
    EXPECT_EQ(rangeOf("7, 9, -2\n"), "7, 9, -2\n");
}

TEST(GeneratedSet, ABlankBeforeACommaEndsTheLine) {
    EXPECT_EQ(rangeOf("7 , 9, 2\n"), "7, 7, 1\n");
    EXPECT_EQ(rangeOf("7, 9 , 2\n"), "7, 9, 1\n");
    EXPECT_EQ(rangeOf("  7,  9,  2  \n"), "7, 9, 2\n");
}

TEST(GeneratedSet, ALineWithoutANumberKeepsTheRange) {
    EXPECT_EQ(rangeOf("7, 9, 2\n\n"), "7, 9, 2\n");
    EXPECT_EQ(rangeOf("7, 9, 2\nx, 1, 2\n"), "7, 9, 2\n");
    EXPECT_EQ(rangeOf("x\n"), "0, -1, 1\n");
}

TEST(GeneratedSet, NumbersOutOfRangeSaturate) {
    EXPECT_EQ(rangeOf("-3000000000, 3000000000, 3000000000\n"),
              "-2147483648, 2147483647, 2147483647\n");
}

TEST(GeneratedSet, FallingRangesStayAsTheyAre) {
    EXPECT_EQ(rangeOf("5, 3, 1\n"), "5, 3, 1\n");
}

}  // namespace
}  // namespace kvocaeio::test
