/// Look-ups by OID, and the cursors of the normalised walks.
#include <climits>

#include "abaqus/normalise_deck.h"

namespace kvocaeio::test {
namespace {

/// Two nodes and a gap between them; elements 3 (one of two), 6 without nodes and 8 of 20.
const std::string kDeck =
    "*NODE\n4, 1.5, 2.5, 3.5\n2, -1., -2., -3.\n"
    "*ELEMENT, TYPE=S3, ELSET=A\n3, 4, 2, 4\n1, 2, 4, 2\n"
    "*ELEMENT, TYPE=B31, ELSET=B\n6, 4, 2\n"
    "*ELEMENT, TYPE=C3D20, ELSET=C\n" +
    elementLine(5, 1, 20) + elementLine(8, 7, 20);

struct Point {
    bool found;
    double x, y, z;
    bool operator==(const Point&) const = default;
};

Point nodeAt(CKVOAbaqusReader& reader, int oid) {
    double coord[3] = {99., 99., 99.};
    CKVOAbaqusReader::NodeData node{-99, coord};
    const bool found = reader.GetNodeDataByOID(oid, &node);
    EXPECT_EQ(node.id, found ? oid : -99);
    EXPECT_EQ(node.coord, coord);
    return {found, coord[0], coord[1], coord[2]};
}

const Point kNotFound{false, 99., 99., 99.};

struct Element {
    bool found;
    int id, nodeNum, firstNode, secondNode;
    bool operator==(const Element&) const = default;
};

Element elementAt(CKVOAbaqusReader& reader, int oid) {
    int nodes[2] = {-99, -99};
    CKVOAbaqusReader::ElemData element{-99, -99, nodes};
    const bool found = reader.GetElemNodesByOID(oid, &element);
    EXPECT_EQ(element.nodes, nodes);
    return {found, element.id, element.nodeNum, nodes[0], nodes[1]};
}

const Element kNoElement{false, -99, -99, -99, -99};

void expectNodes(CKVOAbaqusReader& reader) {
    EXPECT_EQ(nodeAt(reader, 4), (Point{true, 1.5, 2.5, 3.5}));
    EXPECT_EQ(nodeAt(reader, 2), (Point{true, -1., -2., -3.}));
    for (const int gap : {0, 1, 3})
        EXPECT_EQ(nodeAt(reader, gap), (Point{true, 1.5, 2.5, 3.5})) << gap;
    for (const int outside : {5, 6, INT_MAX, -1, INT_MIN})
        EXPECT_EQ(nodeAt(reader, outside), kNotFound) << outside;
}

void expectElements(CKVOAbaqusReader& reader) {
    EXPECT_EQ(elementAt(reader, 3), (Element{true, 3, 3, 4, -99}));
    EXPECT_EQ(elementAt(reader, 1), (Element{true, 1, 3, 2, -99}));
    EXPECT_EQ(elementAt(reader, 8), (Element{true, 8, 20, 7, -99}));
    EXPECT_EQ(elementAt(reader, 6), (Element{true, 6, 0, -99, -99}));
    for (const int gap : {0, 2, 4, 7})
        EXPECT_EQ(elementAt(reader, gap), (Element{true, gap, 3, 4, -99})) << gap;
    for (const int outside : {9, 10, INT_MAX, -1, INT_MIN})
        EXPECT_EQ(elementAt(reader, outside), kNoElement) << outside;
}

TEST(NormaliseLookup, NodesBeforeAndAfterTheSort) {
    Deck deck(kDeck);
    expectNodes(deck.reader);
    deck.sort();
    expectNodes(deck.reader);
}

TEST(NormaliseLookup, ElementsOfTheRawTablesBeforeAndAfterTheSort) {
    Deck deck(kDeck);
    expectElements(deck.reader);
    deck.sort();
    expectElements(deck.reader);
}

/// Nodes and elements with OIDs far apart, and references to OIDs of no node between and beyond
/// them. The `scattered` ones are so many that the look-ups are organised in another way.
std::string sparseDeck(int scattered) {
    std::string nodes =
        "*NODE\n2000000001, 1., 0., 0.\n4096, 2., 0., 0.\n4095, 3., 0., 0.\n8192, 4., 0., 0.\n";
    std::string elements =
        "*ELEMENT, TYPE=C3D4, ELSET=A\n5, 2000000001, 4096, 4095, 8192\n"
        "8200, 4096, 4095, 8192, 4097\n1999999999, 8192, 2000000002, 5000, 4095\n"
        "*ELEMENT, TYPE=C3D4, ELSET=B\n12288, 4095, 4096, 8192, 2000000001\n";
    for (int i = 1; i <= scattered; ++i) {
        const std::string oid = std::to_string(i) + "0000000";
        nodes += oid + ", 5., 6., 7.\n";
        elements += oid + ", 8192, 4095, 4096, " + oid + "\n";
    }
    return nodes + elements +
           "*ELSET, ELSET=G, GENERATE\n0, 40960, 8200\n*SURFACE, TYPE=ELEMENT, NAME=F\nG, S1\n"
           "*DLOAD\n8200, P2, 1.\n";
}

void expectSparseLookups(CKVOAbaqusReader& reader) {
    EXPECT_EQ(nodeAt(reader, 4096), (Point{true, 2., 0., 0.}));
    EXPECT_EQ(nodeAt(reader, 4095), (Point{true, 3., 0., 0.}));
    EXPECT_EQ(nodeAt(reader, 8192), (Point{true, 4., 0., 0.}));
    for (const int first : {2000000001, 0, 4094, 4097, 8191, 12288, 1000000000, 2000000000})
        EXPECT_EQ(nodeAt(reader, first), (Point{true, 1., 0., 0.})) << first;
    EXPECT_EQ(nodeAt(reader, 2000000002), kNotFound);
    EXPECT_EQ(elementAt(reader, 8200), (Element{true, 8200, 4, 4096, -99}));
    EXPECT_EQ(elementAt(reader, 12288), (Element{true, 12288, 4, 4095, -99}));
    EXPECT_EQ(elementAt(reader, 1999999999), (Element{true, 1999999999, 4, 8192, -99}));
    for (const int first : {5, 0, 4096, 8201, 12289, 1000000001, 1999999998})
        EXPECT_EQ(elementAt(reader, first), (Element{true, first, 4, 2000000001, -99})) << first;
    EXPECT_EQ(elementAt(reader, 2000000000), kNoElement);
}

TEST(SparseOids, AreLookedUpSortedAndShown) {
    Deck deck(sparseDeck(0));
    expectSparseLookups(deck.reader);
    deck.sort();
    expectSparseLookups(deck.reader);
    EXPECT_EQ(deck.solids(), (Sections{{"A", 2, 4, {{0, 1, 2, 3}, {1, 2, 3, 0}, {3, 0, 0, 2}}},
                                       {"B", 2, 4, {{2, 1, 3, 0}}}}));
    // Of the set's members 8200 is an element, the others are gaps.
    EXPECT_EQ(deck.shells(),
              (Sections{{"Dload_Shell", 1, 4, {{1, 2, 0, 0}}},
                        {"Surface_Shell",
                         1,
                         4,
                         {{0, 2, 1, 1}, {1, 3, 2, 2}, {0, 2, 1, 1}, {0, 2, 1, 1}, {0, 2, 1, 1}}}}));
    const std::string log = deck.log();
    EXPECT_EQ(log.substr(0, log.find("-------- Node Data")),
              "--------------- Node ID Map-----------------\n"
              "Old ID = 2000000001 , New ID = 0\n"
              "Old ID = 4096 , New ID = 1\n"
              "Old ID = 4095 , New ID = 2\n"
              "Old ID = 8192 , New ID = 3\n"
              "--------------- Element ID Map-----------------\n"
              "Old ID = 5 , MapData = (0, 0)\n"
              "Old ID = 8200 , MapData = (0, 1)\n"
              "Old ID = 1999999999 , MapData = (0, 2)\n"
              "Old ID = 12288 , MapData = (1, 0)\n");
    EXPECT_EQ(deck.logBlock("Solid Element Data"),
              "------- Solid Element Section 0 --------\n"
              "Type = C3D4, Elset = A, Element Node Num = 4\n"
              "New ID = 0 , Old ID = 5 , 0 1 2 3\n"
              "New ID = 1 , Old ID = 8200 , 1 2 3 0\n"
              "New ID = 2 , Old ID = 1999999999 , 3 0 0 2\n"
              "------- Solid Element Section 1 --------\n"
              "Type = C3D4, Elset = B, Element Node Num = 4\n"
              "New ID = 0 , Old ID = 12288 , 2 1 3 0\n");
    EXPECT_NE(readText(deck.folder.path() / "debug" / "InputAbaqus.log")
                  .find("ID = 5 , ( 2000000001 4096 4095 8192 )\n"
                        "ID = 8200 , ( 4096 4095 8192 4097 )\n"
                        "ID = 1999999999 , ( 8192 2000000002 5000 4095 )\n"),
              std::string::npos);
}

TEST(SparseOids, ThatAreScatteredAreLookedUpSortedAndShown) {
    Deck deck(sparseDeck(80));
    for (int round = 0; round < 2; ++round) {
        expectSparseLookups(deck.reader);
        EXPECT_EQ(nodeAt(deck.reader, 800000000), (Point{true, 5., 6., 7.}));
        EXPECT_EQ(nodeAt(deck.reader, 810000000), (Point{true, 1., 0., 0.}));
        EXPECT_EQ(elementAt(deck.reader, 10000000), (Element{true, 10000000, 4, 8192, -99}));
        EXPECT_EQ(elementAt(deck.reader, 810000000),
                  (Element{true, 810000000, 4, 2000000001, -99}));
        if (round == 0)
            deck.sort();
    }
    const Sections solids = deck.solids();
    ASSERT_EQ(solids.size(), 2U);
    EXPECT_EQ(solids[0], (SortedSection{"A", 2, 4, {{0, 1, 2, 3}, {1, 2, 3, 0}, {3, 0, 0, 2}}}));
    ASSERT_EQ(solids[1].elements.size(), 81U);
    EXPECT_EQ(solids[1].elements[0], (std::vector{2, 1, 3, 0}));
    EXPECT_EQ(solids[1].elements[1], (std::vector{3, 2, 1, 4}));
    EXPECT_EQ(solids[1].elements[80], (std::vector{3, 2, 1, 83}));
    const Sections shells = deck.shells();
    ASSERT_EQ(shells.size(), 2U);
    EXPECT_EQ(shells[1].elements,
              (std::vector<std::vector<int>>{
                  {0, 2, 1, 1}, {1, 3, 2, 2}, {0, 2, 1, 1}, {0, 2, 1, 1}, {0, 2, 1, 1}}));
    const std::string log = deck.log();
    for (const char* lines :
         {"Old ID = 8192 , New ID = 3\nOld ID = 10000000 , New ID = 4\n",
          "Old ID = 790000000 , New ID = 82\nOld ID = 800000000 , New ID = 83\n",
          "Old ID = 12288 , MapData = (1, 0)\nOld ID = 10000000 , MapData = (1, 1)\n",
          "Old ID = 800000000 , MapData = (1, 80)\n",
          "New ID = 80 , Old ID = 800000000 , 3 2 1 83\n"})
        EXPECT_NE(log.find(lines), std::string::npos) << lines;
    EXPECT_NE(readText(deck.folder.path() / "debug" / "InputAbaqus.log")
                  .find("ID = 800000000 , ( 8192 4095 4096 800000000 )\n"),
              std::string::npos);
}

TEST(NormaliseLookup, NothingIsFoundWithoutNodesAndElements) {
    CKVOAbaqusReader fresh;
    Deck nodesOnly("*NODE\n0, 1., 2., 3.\n5, 1., 2., 3.\n");
    Deck elementsOnly("*ELEMENT, TYPE=S3, ELSET=A\n0, 1, 2, 3\n5, 1, 2, 3\n");
    elementsOnly.sort();
    for (CKVOAbaqusReader* reader : {&fresh, &nodesOnly.reader, &elementsOnly.reader})
        for (const int oid : {0, 1, 5, -1, INT_MAX}) {
            EXPECT_EQ(nodeAt(*reader, oid), kNotFound) << oid;
            EXPECT_EQ(elementAt(*reader, oid), kNoElement) << oid;
        }
}

TEST(NormaliseLookup, LaterOfRepeatedOidsIsFound) {
    Deck deck(
        "*NODE\n1, 1., 0., 0.\n2, 2., 0., 0.\n1, 3., 0., 0.\n"
        "*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 2, 1\n*ELEMENT, TYPE=S4, ELSET=B\n1, 2, 1, 2, 1\n");
    EXPECT_EQ(nodeAt(deck.reader, 1), (Point{true, 3., 0., 0.}));
    EXPECT_EQ(elementAt(deck.reader, 1), (Element{true, 1, 4, 2, -99}));
}

TEST(NormaliseLookup, LargestOid) {
    Deck deck(
        "*NODE\n2147483647, 1., 2., 3.\n5, 4., 5., 6.\n"
        "*ELEMENT, TYPE=S3, ELSET=A\n2147483647, 5, 2147483647, 5\n");
    EXPECT_EQ(nodeAt(deck.reader, INT_MAX), (Point{true, 1., 2., 3.}));
    EXPECT_EQ(nodeAt(deck.reader, INT_MAX - 1), (Point{true, 1., 2., 3.}));
    EXPECT_EQ(nodeAt(deck.reader, 5), (Point{true, 4., 5., 6.}));
    EXPECT_EQ(nodeAt(deck.reader, -1), kNotFound);
    EXPECT_EQ(elementAt(deck.reader, INT_MAX), (Element{true, INT_MAX, 3, 5, -99}));
    EXPECT_EQ(elementAt(deck.reader, 1000000000), (Element{true, 1000000000, 3, 5, -99}));
}

/// Solids A of one and B of two elements; shells C and D.
const std::string kTwoAndTwo =
    nodeBlock(5) +
    "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n"
    "*ELEMENT, TYPE=C3D4, ELSET=B\n2, 2, 3, 4, 5\n3, 5, 4, 3, 2\n"
    "*ELEMENT, TYPE=S3, ELSET=C\n4, 1, 2, 3\n*ELEMENT, TYPE=S3, ELSET=D\n5, 2, 3, 4\n";

TEST(NormaliseLookup, BothWalksShareOneSectionCursor) {
    Deck deck(kTwoAndTwo);
    deck.sort();
    CKVOAbaqusReader& reader = deck.reader;
    CKVOAbaqusReader::ElemSecData section;
    ASSERT_TRUE(reader.GetElemSolidSecNextR(&section)) << "cursors start at 0";
    EXPECT_STREQ(section.elset, "A");
    ASSERT_TRUE(reader.GetElemShellSecNextR(&section));
    EXPECT_STREQ(section.elset, "D");
    EXPECT_FALSE(reader.GetElemSolidSecNextR(&section));
    EXPECT_FALSE(reader.GetElemShellSecNextR(&section));
    EXPECT_STREQ(section.elset, "D") << "untouched at the end";
    ASSERT_TRUE(reader.GetElemShellSecBeginR());
    ASSERT_TRUE(reader.GetElemSolidSecNextR(&section));
    EXPECT_STREQ(section.elset, "A");
}

TEST(NormaliseLookup, BeginOnAnEmptyListLeavesTheCursor) {
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=S3, ELSET=C\n4, 1, 2, 3\n*ELEMENT, TYPE=S3, ELSET=D\n5, 2, 3, 4\n");
    deck.sort();
    CKVOAbaqusReader::ElemSecData section;
    EXPECT_EQ(deck.reader.GetElemSolidSecNumR(), 0);
    EXPECT_FALSE(deck.reader.GetElemSolidSecBeginR());
    EXPECT_FALSE(deck.reader.GetElemSolidSecNextR(&section));
    ASSERT_TRUE(deck.reader.GetElemShellSecNextR(&section));
    EXPECT_FALSE(deck.reader.GetElemSolidSecBeginR());
    ASSERT_TRUE(deck.reader.GetElemShellSecNextR(&section));
    EXPECT_STREQ(section.elset, "D");
}

TEST(NormaliseLookup, NextSectionDoesNotRestartTheElementWalk) {
    Deck deck(kTwoAndTwo);
    deck.sort();
    CKVOAbaqusReader& reader = deck.reader;
    CKVOAbaqusReader::ElemSecData section;
    CKVOAbaqusReader::ElemData element;
    ASSERT_TRUE(reader.GetElemSolidSecBeginR());
    ASSERT_TRUE(reader.GetElemSolidSecNextR(&section));
    ASSERT_TRUE(reader.GetElemSecElemNextR(&section, &element)) << "cursors start at 0";
    EXPECT_FALSE(reader.GetElemSecElemNextR(&section, &element));
    ASSERT_TRUE(reader.GetElemSolidSecNextR(&section));
    ASSERT_TRUE(reader.GetElemSecElemNextR(&section, &element));
    EXPECT_EQ(element.nodes[0], 4) << "the second element of B";
    ASSERT_TRUE(reader.GetElemSecElemBeginR(&section, nullptr));
    ASSERT_TRUE(reader.GetElemSecElemNextR(&section, &element));
    EXPECT_EQ(element.nodes[0], 1);
}

TEST(NormaliseLookup, ElementWalkReadsTheRecordAlone) {
    CKVOAbaqusReader reader;
    int nodes[] = {7, 8, 9, 10, 11, 12};
    CKVOAbaqusReader::ElemSecData section{"", 0, 3, 2, nodes, nullptr};
    CKVOAbaqusReader::ElemData element{-99, -99, nullptr};
    ASSERT_TRUE(reader.GetElemSecElemBeginR(&section, &element));
    EXPECT_EQ(element.id, -99);
    ASSERT_TRUE(reader.GetElemSecElemNextR(&section, &element));
    EXPECT_EQ(element.id, 0);
    EXPECT_EQ(element.nodeNum, 3);
    EXPECT_EQ(element.nodes, nodes);
    ASSERT_TRUE(reader.GetElemSecElemNextR(&section, &element));
    EXPECT_EQ(element.nodes, nodes + 3);
    EXPECT_FALSE(reader.GetElemSecElemNextR(&section, &element));
    EXPECT_EQ(element.nodes, nodes + 3) << "untouched at the end";
    section.elemNum = 0;
    EXPECT_FALSE(reader.GetElemSecElemBeginR(&section, &element));
}

TEST(NormaliseLookup, EmptySectionHasNoElementWalk) {
    Deck deck(nodeBlock(1) + "*ELEMENT, TYPE=S4, ELSET=A\n");
    deck.sort();
    CKVOAbaqusReader::ElemSecData section;
    CKVOAbaqusReader::ElemData element;
    ASSERT_TRUE(deck.reader.GetElemShellSecBeginR());
    ASSERT_TRUE(deck.reader.GetElemShellSecNextR(&section));
    EXPECT_EQ(section.elemNum, 0);
    EXPECT_FALSE(deck.reader.GetElemSecElemBeginR(&section, &element));
}

}  // namespace
}  // namespace kvocaeio::test
