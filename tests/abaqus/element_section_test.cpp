/// Elements: parameters of the keyword line, and how data lines become connectivity.
#include <climits>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "abaqus/imported_deck.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// What is printed and stored of a keyword line's two parameters, as "type|elset".
std::string elementParameters(const std::string& keywordLine) {
    ImportedDeck deck(keywordLine + "\n");
    const std::string part = deck.logOf(LogPart::kElements);
    const std::size_t type = part.find("TYPE = ") + 7;
    const std::size_t elset = part.find(" , ELSET = ");
    const std::string typeText = part.substr(type, elset - type);
    const std::string elsetText = part.substr(elset + 11, part.find("\n", elset) - elset - 11);
    EXPECT_THAT(deck.printed, HasSubstr("  element type = " + typeText + "\n  geometry type = "));
    EXPECT_THAT(deck.printed, HasSubstr("  elset name = " + elsetText + "\n"));
    return typeText + "|" + elsetText;
}

std::vector<Section> sectionsOf(const std::string& deck) {
    return ImportedDeck(deck).sections();
}

TEST(ElementParameters, EitherOrder) {
    EXPECT_EQ(elementParameters("*ELEMENT, TYPE=S3, ELSET=A"), "S3|A");
    EXPECT_EQ(elementParameters("*ELEMENT, ELSET=A, TYPE=S3"), "S3|A");
    EXPECT_EQ(elementParameters("*ELEMENT,FILE=x,ELSET=A,INPUT=y,TYPE=S3"), "S3|A");
}

TEST(ElementParameters, AreStoredInUpperCase) {
    EXPECT_EQ(elementParameters("*Element, type=c3d8r, elset=Rib-left_1"), "C3D8R|RIB-LEFT_1");
}

TEST(ElementParameters, AbsentOnesAreEmpty) {
    EXPECT_EQ(elementParameters("*ELEMENT"), "|");
    EXPECT_EQ(elementParameters("*ELEMENT, TYPE=S3"), "S3|");
    EXPECT_EQ(elementParameters("*ELEMENT, ELSET=A"), "|A");
}

TEST(ElementParameters, ANameWithoutValueIsEmpty) {
    EXPECT_EQ(elementParameters("*ELEMENT, ELSET=A, TYPE"), "|A");
    EXPECT_EQ(elementParameters("*ELEMENT, ELSET=A, TYPE="), "|A");
    EXPECT_EQ(elementParameters("*ELEMENT, TYPE=S3, ELSET"), "S3|");
    EXPECT_EQ(elementParameters("*ELEMENT, TYPE=S3, ELSET=,,"), "S3|");
}

TEST(ElementParameters, AValueKeepsItsBlanks) {
    EXPECT_EQ(elementParameters("*ELEMENT, TYPE= S3, ELSET=TOP SIDE "), " S3|TOP SIDE ");
    EXPECT_EQ(elementParameters("*ELEMENT, TYPE=S3 , ELSET=  A"), "S3 |  A");
}

TEST(ElementParameters, ABlankBeforeTheEqualsSignIsTheValue) {
    // The first blank ends the name; the rest up to the equals sign is the value.
    EXPECT_EQ(elementParameters("*ELEMENT, TYPE  =S3"), " |");
    EXPECT_EQ(elementParameters("*ELEMENT, TYPE =S3, ELSET =A"), "S3|A");
}

TEST(ElementParameters, AMissingValueTakesTheNextWord) {
    EXPECT_EQ(elementParameters("*ELEMENT, TYPE=,ELSET=A"), "ELSET|A");
    EXPECT_EQ(elementParameters("*ELEMENT, TYPE, S3"), " S3|");
}

TEST(ElementParameters, AValueThatEqualsANameIsTakenForIt) {
    EXPECT_EQ(elementParameters("*ELEMENT, ELSET=TYPE, TYPE=S3"), " TYPE|TYPE");
    EXPECT_EQ(elementParameters("*ELEMENT, TYPE=ELSET, ELSET=A"), "ELSET| ELSET");
}

TEST(ElementParameters, TheFirstOfTwoCounts) {
    EXPECT_EQ(elementParameters("*ELEMENT, TYPE=S3, TYPE=S4, ELSET=A, ELSET=B"), "S3|A");
}

TEST(ElementParameters, NamesMustBeWholeWords) {
    EXPECT_EQ(elementParameters("*ELEMENT, XTYPE=S3, ELSETS=A"), "|");
    EXPECT_EQ(elementParameters("*ELEMENT, TYPE\t=S3, \tELSET=A"), "|");
}

TEST(ElementParameters, ALongNameIsCutTo79CharactersInTheRecordOnly) {
    const std::string name79(79, 'N');
    EXPECT_EQ(sectionsOf("*ELEMENT, TYPE=S3, ELSET=" + name79 + "\n")[0].elset, name79);
    EXPECT_EQ(sectionsOf("*ELEMENT, TYPE=S3, ELSET=" + name79 + "M\n")[0].elset, name79);
    const std::string name480(480, 'N');
    EXPECT_EQ(sectionsOf("*ELEMENT, TYPE=S3, ELSET=" + name480 + "\n")[0].elset, name79);
    EXPECT_EQ(elementParameters("*ELEMENT, TYPE=S3, ELSET=" + name480), "S3|" + name480);
}

TEST(ElementSection, OneLinePerElement) {
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=C3D4, ELSET=BODY\n11, 1, 2, 3, 4\n12, 5, 6, 7, 8\n"),
                ElementsAre(Section{"BODY", 2, 4, {11, 12}, {1, 2, 3, 4, 5, 6, 7, 8}}));
}

TEST(ElementSection, BlanksSeparateLikeCommas) {
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=S3\n  11   1,2   3  \n,,12,,1,2,3\n"),
                ElementsAre(Section{"", 1, 3, {11, 12}, {1, 2, 3, 1, 2, 3}}));
}

TEST(ElementSection, OneSectionPerBlockInDeckOrder) {
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=S3, ELSET=B\n1, 1, 2, 3\n"
                           "*ELEMENT, TYPE=S4, ELSET=A\n"
                           "*ELEMENT, TYPE=S3, ELSET=B\n2, 4, 5, 6\n"),
                ElementsAre(Section{"B", 1, 3, {1}, {1, 2, 3}}, Section{"A", 1, 4, {}, {}},
                            Section{"B", 1, 3, {2}, {4, 5, 6}}));
}

TEST(ElementSection, AnElementRunsOverAnyNumberOfLines) {
    const Section expected{"", 2, 8, {7, 9}, {1, 2, 3, 4, 5, 6, 7, 8, 8, 7, 6, 5, 4, 3, 2, 1}};
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=C3D8\n7, 1, 2, 3, 4,\n5, 6, 7, 8\n"
                           "9, 8, 7, 6, 5\n4, 3, 2, 1,\n"),
                ElementsAre(expected));
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=C3D8\n7\n1\n2\n3\n4\n5\n6\n7\n8\n"
                           "9,\n8, 7,\n6, 5, 4,\n3, 2, 1\n"),
                ElementsAre(expected));
}

TEST(ElementSection, TokensBehindTheLastNodeAreIgnored) {
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=R3D4\n7, 1, 2, 3, 4\n8, 5, 6, 7, 8\n"),
                ElementsAre(Section{"", 1, 3, {7, 8}, {1, 2, 3, 5, 6, 7}}));
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=C3D4\n7, 1, 2,\n3, 4, 99, 98\n8, 5, 6, 7, 8\n"),
                ElementsAre(Section{"", 2, 4, {7, 8}, {1, 2, 3, 4, 5, 6, 7, 8}}));
}

TEST(ElementSection, ACommentBetweenElementsIsPassedOver) {
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=S3\n** a\n7, 1, 2, 3\n** b\n8, 4, 5, 6\n** c\n"),
                ElementsAre(Section{"", 1, 3, {7, 8}, {1, 2, 3, 4, 5, 6}}));
}

TEST(ElementSection, ACommentOnAContinuationGivesNodeTokens) {
    // "**" and "x" are no numbers and repeat the one before them; 5 is a node.
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=C3D4\n7, 1,\n** x, 5\n8, 2, 3, 4, 5\n"),
                ElementsAre(Section{"", 2, 4, {7, 8}, {1, 1, 1, 5, 2, 3, 4, 5}}));
}

TEST(ElementSection, AKeywordOnAContinuationIsSwallowed) {
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=C3D4\n7, 1,\n*NODE, 2, 3\n8, 2, 3, 4, 5\n"),
                ElementsAre(Section{"", 2, 4, {7, 8}, {1, 1, 2, 3, 2, 3, 4, 5}}));
}

TEST(ElementSection, ABlankLineBetweenElementsIsPassedOver) {
    ImportedDeck deck("*ELEMENT, TYPE=S3\n\n7, 1, 2, 3\n , \n8, 4, 5, 6\n\n");
    EXPECT_THAT(deck.sections(), ElementsAre(Section{"", 1, 3, {7, 8}, {1, 2, 3, 4, 5, 6}}));
    EXPECT_THAT(deck.printed, HasSubstr("  Elem Block [0] = 2\n"));
}

TEST(ElementSection, ABlankLineOnAContinuationIsReadOver) {
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=S3\n7, 1,\n\n , \n2, 3\n"),
                ElementsAre(Section{"", 1, 3, {7}, {1, 2, 3}}));
}

TEST(ElementSection, ATokenThatIsNoNumberKeepsTheOneBefore) {
    // One variable serves the OID and the nodes, from line to line.
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=S3\n7, 1, x, 3\ny, 4, z, -\n"),
                ElementsAre(Section{"", 1, 3, {7, 3}, {1, 1, 3, 4, 4, 4}}));
}

TEST(ElementSection, TheVariableIsZeroAtTheStartOfEachSection) {
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=S3\nx, y, 5, 6\n*ELEMENT, TYPE=S3\nx, y, 5, 6\n"),
                ElementsAre(Section{"", 1, 3, {0}, {0, 5, 6}}, Section{"", 1, 3, {0}, {0, 5, 6}}));
}

TEST(ElementSection, NumbersReadAsIntsDo) {
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=C3D5\n+7, 1.9, 2e3, 0x10, 3x, \t4\n"),
                ElementsAre(Section{"", 2, 5, {7}, {1, 2, 0, 3, 4}}));
    EXPECT_THAT(
        sectionsOf("*ELEMENT, TYPE=S3\n2147483648, -2147483649, 99999999999999999999, -0\n"),
        ElementsAre(Section{"", 1, 3, {INT_MAX}, {INT_MIN, INT_MAX, 0}}));
}

TEST(ElementSection, ATabSeparatesNothing) {
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=S3\n7\t1, 2, 3, 4\n"),
                ElementsAre(Section{"", 1, 3, {7}, {2, 3, 4}}));
}

TEST(ElementSection, UnknownTypeIsWalkedLikeAnyOther) {
    ImportedDeck deck("*ELEMENT, TYPE=B31, ELSET=BEAMS\n7, 1, 2\n8, 2,\n3\n");
    EXPECT_THAT(deck.sections(), ElementsAre(Section{"BEAMS", 0, 0, {7, 8, 3}, {}}));
    EXPECT_THAT(deck.logOf(LogPart::kElements), HasSubstr("ID = 7 , ( )\nID = 8 , ( )\n"));
}

TEST(ElementSection, UnknownGeometryWithNodesKeepsThem) {
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=C3D2\n7, 1, 2\n"),
                ElementsAre(Section{"", 0, 2, {7}, {1, 2}}));
}

TEST(ElementSection, ADeckThatEndsInAnElementTakesItsLastLineAgain) {
    // The OID of the first line comes first.
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=C3D4\n7, 1, 2\n"),
                ElementsAre(Section{"", 2, 4, {7}, {1, 2, 7, 1}}));
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=C3D4\n7, 1, 2"),
                ElementsAre(Section{"", 2, 4, {7}, {1, 2, 7, 1}}));
}

TEST(ElementSection, ADeckThatEndsInAnElementTakesItsLastLineRoundAndRound) {
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=C3D8\n7, 1\n"),
                ElementsAre(Section{"", 2, 8, {7}, {1, 7, 1, 7, 1, 7, 1, 7}}));
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=C3D5\n7\n"),
                ElementsAre(Section{"", 2, 5, {7}, {7, 7, 7, 7, 7}}));
}

TEST(ElementSection, ADeckThatEndsInAContinuationTakesThatLineAgain) {
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=C3D8\n7, 1,\n2, 3, x\n"),
                ElementsAre(Section{"", 2, 8, {7}, {1, 2, 3, 3, 2, 3, 3, 2}}));
}

TEST(ElementSection, ADeckThatEndsInALongLineTakesItsLastPieceAgain) {
    // 511 characters arrive first; the last piece is "4, 5".
    const std::string line = "7, 1, 2, 3," + std::string(500, ' ') + "4, 5";
    EXPECT_THAT(sectionsOf("*ELEMENT, TYPE=C3D8\n" + line + "\n"),
                ElementsAre(Section{"", 2, 8, {7}, {1, 2, 3, 4, 5, 4, 5, 4}}));
}

}  // namespace
}  // namespace kvocaeio::test
