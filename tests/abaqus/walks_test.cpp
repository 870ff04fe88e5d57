/// The walks over the raw tables and the look-ups by OID.
#include <climits>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "abaqus/imported_deck.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;

using Reader = CKVOAbaqusReader;

const char* const kTwoSections =
    "*NODE\n10, 1, 2, 3\n30, 4, 5, 6\n20, 7, 8, 9\n"
    "*ELEMENT, TYPE=S3, ELSET=A\n5, 10, 20, 30\n6, 30, 20, 10\n"
    "*ELEMENT, TYPE=B31, ELSET=B\n8, 10, 20\n"
    "*ELEMENT, TYPE=C3D4, ELSET=C\n7, 30, 20, 10, 10\n"
    "*SHELL SECTION, MATERIAL=M, ELSET=A\n0.5\n"
    "*SHELL SECTION, MATERIAL=M, ELSET=Z\n1.5\n";

/// x of the node that the look-up gives; -999 where it gives false.
double xByOid(Reader& reader, int oid) {
    double xyz[3] = {-1, -2, -3};
    Reader::NodeData node{-77, xyz};
    if (!reader.GetNodeDataByOID(oid, &node)) {
        EXPECT_EQ(node.id, -77);
        EXPECT_EQ(xyz[0], -1);
        return -999;
    }
    EXPECT_EQ(node.id, oid);
    return xyz[0];
}

/// Node count and first node of the element that the look-up gives.
std::vector<int> elementByOid(Reader& reader, int oid) {
    int first = -55;
    Reader::ElemData element{-77, -66, &first};
    if (!reader.GetElemNodesByOID(oid, &element)) {
        EXPECT_EQ(element.id, -77);
        EXPECT_EQ(element.nodeNum, -66);
        EXPECT_EQ(first, -55);
        return {};
    }
    EXPECT_EQ(element.id, oid);
    return {element.nodeNum, first};
}

TEST(Walks, BeforeAnyImportNothingIsThere) {
    Reader reader;
    Reader::NodeData node{-77, nullptr};
    Reader::ElemSecData section{};
    Reader::ShellSecData shell{};
    EXPECT_EQ(reader.GetNodeNum(), 0);
    EXPECT_FALSE(reader.GetNodeBegin());
    EXPECT_FALSE(reader.GetNodeNext(&node));
    EXPECT_EQ(node.id, -77);
    EXPECT_EQ(reader.GetElemSecNum(), 0);
    EXPECT_FALSE(reader.GetElemSecBegin());
    EXPECT_FALSE(reader.GetElemSecNext(&section));
    EXPECT_TRUE(reader.GetElemSecElemBegin());
    EXPECT_EQ(reader.GetShellSecNum(), 0);
    EXPECT_FALSE(reader.GetShellSecBegin());
    EXPECT_FALSE(reader.GetShellSecNext(&shell));
    EXPECT_EQ(xByOid(reader, 0), -999);
    EXPECT_TRUE(elementByOid(reader, 0).empty());
}

TEST(Walks, GiveAllTablesInDeckOrder) {
    ImportedDeck deck(kTwoSections);
    EXPECT_EQ(deck.reader.GetNodeNum(), 3);
    EXPECT_EQ(deck.reader.GetElemSecNum(), 3);
    EXPECT_EQ(deck.reader.GetShellSecNum(), 2);
    EXPECT_THAT(deck.nodes(), ElementsAre(Node{10, 1, 2, 3}, Node{30, 4, 5, 6}, Node{20, 7, 8, 9}));
    EXPECT_THAT(deck.sections(), ElementsAre(Section{"A", 1, 3, {5, 6}, {10, 20, 30, 30, 20, 10}},
                                             Section{"B", 0, 0, {8}, {}},
                                             Section{"C", 2, 4, {7}, {30, 20, 10, 10}}));
    EXPECT_THAT(deck.shellSections(),
                ElementsAre(ShellThickness{"A", 0.5}, ShellThickness{"Z", 1.5}));
}

TEST(Walks, NeedNoBeginTheFirstTime) {
    ImportedDeck deck(kTwoSections);
    Reader::NodeData node;
    Reader::ElemSecData section;
    Reader::ShellSecData shell;
    ASSERT_TRUE(deck.reader.GetNodeNext(&node));
    EXPECT_EQ(node.id, 10);
    ASSERT_TRUE(deck.reader.GetElemSecNext(&section));
    EXPECT_STREQ(section.elset, "A");
    ASSERT_TRUE(deck.reader.GetShellSecNext(&shell));
    EXPECT_STREQ(shell.elset, "A");
}

TEST(Walks, BeginStartsAgain) {
    ImportedDeck deck(kTwoSections);
    Reader::NodeData node;
    Reader::ElemSecData section;
    Reader::ShellSecData shell;
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(deck.reader.GetNodeBegin());
        ASSERT_TRUE(deck.reader.GetElemSecBegin());
        ASSERT_TRUE(deck.reader.GetShellSecBegin());
        ASSERT_TRUE(deck.reader.GetNodeNext(&node));
        ASSERT_TRUE(deck.reader.GetElemSecNext(&section));
        ASSERT_TRUE(deck.reader.GetShellSecNext(&shell));
        EXPECT_EQ(node.id, 10);
        EXPECT_STREQ(section.elset, "A");
        EXPECT_STREQ(shell.elset, "A");
    }
}

TEST(Walks, StayAtTheirEnd) {
    ImportedDeck deck("*NODE\n1, 1, 2, 3\n*ELEMENT, TYPE=S3\n*SHELL SECTION, MATERIAL=M\n");
    Reader::NodeData node;
    Reader::ElemSecData section;
    Reader::ShellSecData shell;
    EXPECT_TRUE(deck.reader.GetNodeNext(&node));
    EXPECT_FALSE(deck.reader.GetNodeNext(&node));
    EXPECT_FALSE(deck.reader.GetNodeNext(&node));
    EXPECT_EQ(node.id, 1);
    EXPECT_TRUE(deck.reader.GetElemSecNext(&section));
    EXPECT_FALSE(deck.reader.GetElemSecNext(&section));
    EXPECT_TRUE(deck.reader.GetShellSecNext(&shell));
    EXPECT_FALSE(deck.reader.GetShellSecNext(&shell));
}

TEST(Walks, NodePointersPointIntoOneTable) {
    ImportedDeck deck(kTwoSections);
    Reader::NodeData first, second;
    deck.reader.GetNodeNext(&first);
    deck.reader.GetNodeNext(&second);
    EXPECT_EQ(second.coord, first.coord + 3);
    EXPECT_EQ(first.coord[0], 1);
}

TEST(Walks, TheSectionRecordPointsAtItsTables) {
    ImportedDeck deck(kTwoSections);
    Reader::ElemSecData section;
    ASSERT_TRUE(deck.reader.GetElemSecNext(&section));
    EXPECT_EQ(section.elemNum, 2);
    EXPECT_EQ(section.nodesPerElem, 3);
    EXPECT_EQ(section.geometryType, 1);
    EXPECT_THAT(std::vector<int>(section.ids, section.ids + 2), ElementsAre(5, 6));
    EXPECT_THAT(std::vector<int>(section.nodes, section.nodes + 6),
                ElementsAre(10, 20, 30, 30, 20, 10));
}

TEST(Walks, TheElementWalkReadsOnlyTheRecordItIsGiven) {
    Reader reader;
    int ids[] = {5, 6};
    int nodes[] = {1, 2, 3, 4};
    Reader::ElemSecData record{"", 0, 2, 2, nodes, ids};
    int id = 0;
    int* found = nullptr;
    EXPECT_TRUE(reader.GetElemSecElemNext(&record, &id, &found));
    EXPECT_EQ(id, 5);
    EXPECT_EQ(found, nodes);
    EXPECT_TRUE(reader.GetElemSecElemNext(&record, &id, &found));
    EXPECT_EQ(id, 6);
    EXPECT_EQ(found, nodes + 2);
    EXPECT_FALSE(reader.GetElemSecElemNext(&record, &id, &found));
    EXPECT_EQ(id, 6);
    EXPECT_TRUE(reader.GetElemSecElemBegin());
    EXPECT_TRUE(reader.GetElemSecElemNext(&record, &id, &found));
    EXPECT_EQ(id, 5);
}

TEST(Walks, TheNextSectionStartsTheElementWalkAgain) {
    ImportedDeck deck(kTwoSections);
    Reader::ElemSecData section;
    int id = 0;
    int* nodes = nullptr;
    deck.reader.GetElemSecNext(&section);
    EXPECT_TRUE(deck.reader.GetElemSecElemNext(&section, &id, &nodes));
    EXPECT_EQ(id, 5);
    deck.reader.GetElemSecNext(&section);
    EXPECT_TRUE(deck.reader.GetElemSecElemNext(&section, &id, &nodes));
    EXPECT_EQ(id, 8);
    EXPECT_FALSE(deck.reader.GetElemSecElemNext(&section, &id, &nodes));
}

TEST(Walks, BeginOfTheSectionsLeavesTheElementWalk) {
    ImportedDeck deck(kTwoSections);
    Reader::ElemSecData section;
    int id = 0;
    int* nodes = nullptr;
    deck.reader.GetElemSecNext(&section);
    deck.reader.GetElemSecElemNext(&section, &id, &nodes);
    deck.reader.GetElemSecBegin();
    EXPECT_TRUE(deck.reader.GetElemSecElemNext(&section, &id, &nodes));
    EXPECT_EQ(id, 6);
}

TEST(OidLookup, GivesTheNodeOfAnOid) {
    ImportedDeck deck(kTwoSections);
    EXPECT_EQ(xByOid(deck.reader, 10), 1);
    EXPECT_EQ(xByOid(deck.reader, 20), 7);
    EXPECT_EQ(xByOid(deck.reader, 30), 4);
}

TEST(OidLookup, AGapGivesTheFirstNode) {
    ImportedDeck deck(kTwoSections);
    EXPECT_EQ(xByOid(deck.reader, 0), 1);
    EXPECT_EQ(xByOid(deck.reader, 29), 1);
}

TEST(OidLookup, OutsideTheDecksOidsIsFalse) {
    ImportedDeck deck(kTwoSections);
    for (const int oid : {-1, INT_MIN, 31, 32, INT_MAX})
        EXPECT_EQ(xByOid(deck.reader, oid), -999) << oid;
    for (const int oid : {-1, INT_MIN, 9, 10, INT_MAX})
        EXPECT_TRUE(elementByOid(deck.reader, oid).empty()) << oid;
}

TEST(OidLookup, GivesTheElementOfAnOid) {
    ImportedDeck deck(kTwoSections);
    EXPECT_THAT(elementByOid(deck.reader, 5), ElementsAre(3, 10));
    EXPECT_THAT(elementByOid(deck.reader, 6), ElementsAre(3, 30));
    EXPECT_THAT(elementByOid(deck.reader, 7), ElementsAre(4, 30));
    EXPECT_THAT(elementByOid(deck.reader, 8), ElementsAre(0, -55));
    EXPECT_THAT(elementByOid(deck.reader, 4), ElementsAre(3, 10));
}

TEST(OidLookup, TheLaterOfTwoEqualOidsWins) {
    ImportedDeck deck(
        "*NODE\n5, 1, 0, 0\n6, 2, 0, 0\n5, 3, 0, 0\n"
        "*ELEMENT, TYPE=S3\n1, 11, 0, 0\n2, 12, 0, 0\n1, 13, 0, 0\n"
        "*ELEMENT, TYPE=S4\n2, 14, 0, 0, 0\n");
    EXPECT_EQ(xByOid(deck.reader, 5), 3);
    EXPECT_THAT(elementByOid(deck.reader, 1), ElementsAre(3, 13));
    EXPECT_THAT(elementByOid(deck.reader, 2), ElementsAre(4, 14));
}

TEST(OidLookup, WithoutElementsOrNodesThereIsNone) {
    ImportedDeck nodesOnly("*NODE\n5, 1, 0, 0\n");
    EXPECT_EQ(xByOid(nodesOnly.reader, 5), -999);
    EXPECT_EQ(xByOid(nodesOnly.reader, 0), -999);
    ImportedDeck elementsOnly("*ELEMENT, TYPE=S3\n5, 1, 2, 3\n");
    EXPECT_TRUE(elementByOid(elementsOnly.reader, 5).empty());
    EXPECT_TRUE(elementByOid(elementsOnly.reader, 0).empty());
}

TEST(OidLookup, NegativeOidsAreLeftOut) {
    ImportedDeck deck(
        "*NODE\n-5, 1, 0, 0\n-2147483648, 2, 0, 0\n*ELEMENT, TYPE=S3\n-7, 11, 0, 0\n");
    EXPECT_EQ(xByOid(deck.reader, 0), 1);
    EXPECT_EQ(xByOid(deck.reader, 1), -999);
    EXPECT_EQ(xByOid(deck.reader, -5), -999);
    EXPECT_THAT(elementByOid(deck.reader, 0), ElementsAre(3, 11));
    EXPECT_TRUE(elementByOid(deck.reader, -7).empty());
}

TEST(OidLookup, TheLargestOidWorks) {
    ImportedDeck deck(
        "*NODE\n1, 1, 0, 0\n2147483647, 2, 0, 0\n*ELEMENT, TYPE=S3\n1, 11, 0, 0\n"
        "2147483647, 12, 0, 0\n");
    EXPECT_EQ(xByOid(deck.reader, 2147483647), 2);
    EXPECT_EQ(xByOid(deck.reader, 2147483646), 1);
    EXPECT_THAT(elementByOid(deck.reader, 2147483647), ElementsAre(3, 12));
    EXPECT_THAT(elementByOid(deck.reader, 2147483646), ElementsAre(3, 11));
}

}  // namespace
}  // namespace kvocaeio::test
