/// Sections apart by geometry, corner reduction, new node IDs, and what the sort prints.
#include "abaqus/normalise_deck.h"

namespace kvocaeio::test {
namespace {

std::vector<double> xByOid(CKVOAbaqusReader& reader, int lastOid) {
    std::vector<double> x;
    for (int oid = 0; oid <= lastOid; ++oid) {
        double coord[3] = {-1.0, -1.0, -1.0};
        CKVOAbaqusReader::NodeData node{-1, coord};
        EXPECT_TRUE(reader.GetNodeDataByOID(oid, &node));
        EXPECT_EQ(node.id, oid);
        x.push_back(coord[0]);
    }
    return x;
}

std::vector<int> nodeWalk(CKVOAbaqusReader& reader) {
    std::vector<int> oids;
    CKVOAbaqusReader::NodeData node;
    if (reader.GetNodeBegin())
        while (reader.GetNodeNext(&node))
            oids.push_back(node.id);
    return oids;
}

TEST(NormaliseSections, NodeInAGapOfTheOidsBecomesRowZero) {
    Deck deck(
        "*NODE\n5, 50., 0., 0.\n7, 70., 0., 0.\n9, 90., 0., 0.\n"
        "*ELEMENT, TYPE=S3, ELSET=A\n1, 6, 7, 9\n2, 5, 9, 7\n");
    deck.sort();
    EXPECT_EQ(deck.shells(), (Sections{{"A", 1, 3, {{0, 1, 2}, {0, 2, 1}}}}));
    EXPECT_EQ(xByOid(deck.reader, 9),
              (std::vector<double>{50, 50, 50, 50, 50, 50, 50, 70, 50, 90}));
}

TEST(NormaliseSections, NodeOutsideTheMapBecomesRowZero) {
    Deck deck(
        "*NODE\n7, 0., 0., 0.\n5, 0., 0., 0.\n9, 0., 0., 0.\n"
        "*ELEMENT, TYPE=S4, ELSET=A\n1, 10, -1, 2147483647, 9\n2, 5, -2147483648, 0, 7\n");
    deck.sort();
    EXPECT_EQ(deck.shells(), (Sections{{"A", 1, 4, {{0, 0, 0, 2}, {1, 0, 0, 0}}}}));
}

TEST(NormaliseSections, NodeOidZeroIsAnOidLikeAnyOther) {
    Deck deck(
        "*NODE\n7, 0., 0., 0.\n0, 0., 0., 0.\n9, 0., 0., 0.\n"
        "*ELEMENT, TYPE=S3, ELSET=A\n1, 0, 7, 8\n");
    deck.sort();
    EXPECT_EQ(deck.shells(), (Sections{{"A", 1, 3, {{1, 0, 0}}}}));
}

TEST(NormaliseSections, LaterRowOfARepeatedNodeOidWins) {
    Deck deck(
        "*NODE\n1, 1., 0., 0.\n2, 2., 0., 0.\n3, 3., 0., 0.\n1, 4., 0., 0.\n"
        "*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 2, 3\n");
    deck.sort();
    EXPECT_EQ(deck.shells(), (Sections{{"A", 1, 3, {{3, 1, 2}}}}));
    EXPECT_EQ(nodeWalk(deck.reader), (std::vector<int>{1, 2, 3, 1}));
}

TEST(NormaliseSections, NewIdsAreRowsInDeckOrderOverAllNodeBlocks) {
    Deck deck(
        "*NODE\n30, 0., 0., 0.\n10, 0., 0., 0.\n"
        "*ELEMENT, TYPE=S3, ELSET=A\n1, 10, 20, 30\n"
        "*NODE\n40, 0., 0., 0.\n20, 0., 0., 0.\n");
    deck.sort();
    EXPECT_EQ(deck.shells(), (Sections{{"A", 1, 3, {{1, 3, 0}}}}));
}

TEST(NormaliseSections, RawWalksAreTheSameBeforeAndAfter) {
    Deck deck(
        "*NODE\n9, 0., 0., 0.\n2, 0., 0., 0.\n1, 0., 0., 0.\n3, 0., 0., 0.\n4, 0., 0., 0.\n"
        "*ELEMENT, TYPE=C3D4, ELSET=ZED\n8, 1, 2, 3, 4\n"
        "*ELEMENT, TYPE=C3D5, ELSET=A\n6, 1, 2, 3, 4, 9\n"
        "*ELEMENT, TYPE=C3D4, ELSET=ZED\n7, 4, 3, 2, 1\n"
        "*ELEMENT, TYPE=B31, ELSET=BEAM\n5, 1, 2\n"
        "*NSET, NSET=N\n2\n"
        "*ELSET, ELSET=E, GENERATE\n6, 8\n");
    const std::vector<int> nodes{9, 2, 1, 3, 4};
    const Sections raw{{"ZED", 2, 4, {{8, 1, 2, 3, 4}}},
                       {"A", 2, 5, {{6, 1, 2, 3, 4, 9}}},
                       {"ZED", 2, 4, {{7, 4, 3, 2, 1}}},
                       {"BEAM", 0, 0, {{5}}}};
    EXPECT_EQ(nodeWalk(deck.reader), nodes);
    EXPECT_EQ(rawSectionsOf(deck.reader), raw);
    deck.sort();
    EXPECT_EQ(nodeWalk(deck.reader), nodes);
    EXPECT_EQ(rawSectionsOf(deck.reader), raw);
}

TEST(NormaliseSections, QuadraticSolidsKeepTheirCornersAlone) {
    struct Case {
        const char* type;
        int width;
        std::vector<int> first, second;
    };
    const Case cases[] = {
        {"C3D4", 4, {0, 1, 2, 3}, {1, 2, 3, 4}},
        {"C3D5", 5, {0, 1, 2, 3, 4}, {1, 2, 3, 4, 5}},
        {"C3D6", 6, {0, 1, 2, 3, 4, 5}, {1, 2, 3, 4, 5, 6}},
        {"C3D8R", 8, {0, 1, 2, 3, 4, 5, 6, 7}, {1, 2, 3, 4, 5, 6, 7, 8}},
        {"C3D10M", 10, {0, 1, 2, 3}, {1, 2, 3, 4}},
        {"C3D15", 15, {0, 1, 2, 3, 4, 5}, {1, 2, 3, 4, 5, 6}},
        {"DC3D20", 20, {0, 1, 2, 3, 4, 5, 6, 7}, {1, 2, 3, 4, 5, 6, 7, 8}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.type);
        Deck deck(nodeBlock(21) + "*ELEMENT, TYPE=" + c.type + ", ELSET=A\n" +
                  elementLine(11, 1, c.width) + elementLine(12, 2, c.width));
        deck.sort();
        const int corners = static_cast<int>(c.first.size());
        EXPECT_EQ(deck.solids(), (Sections{{"A", 2, corners, {c.first, c.second}}}));
        EXPECT_EQ(deck.shells(), Sections{});
        EXPECT_NE(deck.logBlock("Solid Element Data").find("Type = " + std::string(c.type) + ", "),
                  std::string::npos);
        EXPECT_EQ(deck.printed, "elem sec num = 1\nsec 0 , geom type = 2\nelement node num = " +
                                    std::to_string(c.width) + "\n" + deck.logLine());
    }
}

TEST(NormaliseSections, ReducedBlockKeepsItsTypeTextAndOids) {
    Deck deck(nodeBlock(10) + "*ELEMENT, TYPE=C3D10, ELSET=A\n" + elementLine(77, 1, 10));
    deck.sort();
    EXPECT_EQ(deck.logBlock("Solid Element Data"),
              "------- Solid Element Section 0 --------\n"
              "Type = C3D10, Elset = A, Element Node Num = 4\n"
              "New ID = 0 , Old ID = 77 , 0 1 2 3\n");
}

TEST(NormaliseSections, QuadraticBlockWithoutElementsKeepsItsRawWidth) {
    Deck deck(nodeBlock(1) +
              "*ELEMENT, TYPE=C3D10, ELSET=A\n*ELEMENT, TYPE=C3D15, ELSET=B\n"
              "*ELEMENT, TYPE=C3D20, ELSET=C\n*ELEMENT, TYPE=C3D4, ELSET=D\n");
    deck.sort();
    EXPECT_EQ(deck.solids(),
              (Sections{{"A", 2, 10, {}}, {"B", 2, 15, {}}, {"C", 2, 20, {}}, {"D", 2, 4, {}}}));
}

TEST(NormaliseSections, ShellsAreCopiedUnchanged) {
    Deck deck(nodeBlock(5) +
              "*ELEMENT, TYPE=S3R, ELSET=A\n1, 1, 2, 3\n2, 2, 3, 4\n"
              "*ELEMENT, TYPE=S4R, ELSET=B\n3, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=R3D4, ELSET=C\n4, 2, 3, 4, 5\n");
    deck.sort();
    EXPECT_EQ(deck.solids(), Sections{});
    EXPECT_EQ(deck.shells(), (Sections{{"A", 1, 3, {{0, 1, 2}, {1, 2, 3}}},
                                       {"B", 1, 4, {{0, 1, 2, 3}}},
                                       {"C", 1, 3, {{1, 2, 3}}}}));
    EXPECT_EQ(deck.logBlock("Shell Element Data"),
              "------- Shell Element Section 0 --------\n"
              "Type = S3R, Elset = A, Element Node Num = 3\n"
              "New ID = 0 , Old ID = 1 , 0 1 2\n"
              "New ID = 1 , Old ID = 2 , 1 2 3\n"
              "------- Shell Element Section 1 --------\n"
              "Type = S4R, Elset = B, Element Node Num = 4\n"
              "New ID = 0 , Old ID = 3 , 0 1 2 3\n"
              "------- Shell Element Section 2 --------\n"
              "Type = R3D4, Elset = C, Element Node Num = 3\n"
              "New ID = 0 , Old ID = 4 , 1 2 3\n");
}

TEST(NormaliseSections, PrintsEverySectionAndTheWidthOfSolids) {
    Deck deck(nodeBlock(27) + "*ELEMENT, TYPE=S4, ELSET=A\n1, 1, 2, 3, 4\n" +
                  "*ELEMENT, TYPE=C3D20, ELSET=B\n" + elementLine(2, 1, 20) +
                  "*ELEMENT, TYPE=C3D27, ELSET=C\n" + elementLine(3, 1, 27) +
                  "*ELEMENT, TYPE=C3D4\n4, 1, 2, 3, 4\n",
              DebugFolder::absent);
    deck.sort();
    EXPECT_EQ(deck.printed,
              "elem sec num = 4\n"
              "sec 0 , geom type = 1\n"
              "sec 1 , geom type = 2\nelement node num = 20\n"
              "sec 2 , geom type = 0\n"
              "sec 3 , geom type = 2\nelement node num = 4\n");
    EXPECT_EQ(deck.solids(),
              (Sections{{"B", 2, 8, {{0, 1, 2, 3, 4, 5, 6, 7}}}, {"", 2, 4, {{0, 1, 2, 3}}}}));
    EXPECT_EQ(deck.shells(), (Sections{{"A", 1, 4, {{0, 1, 2, 3}}}}));
}

TEST(NormaliseSections, BlocksOfUnknownTypeAlonePrintTheirLinesAndLeaveBothListsEmpty) {
    Deck deck(nodeBlock(27) + "*ELEMENT, TYPE=B31, ELSET=A\n1, 1, 2\n" +
              "*ELEMENT, TYPE=C3D27, ELSET=A\n" + elementLine(2, 1, 27));
    deck.sort();
    EXPECT_EQ(deck.printed,
              "elem sec num = 2\nsec 0 , geom type = 0\nsec 1 , geom type = 0\n" + deck.logLine());
    EXPECT_EQ(deck.solids(), Sections{});
    EXPECT_EQ(deck.shells(), Sections{});
    EXPECT_EQ(deck.reader.GetElemSecNum(), 2);
}

TEST(NormaliseSections, BothListsAreEmptyBeforeTheSort) {
    Deck deck(nodeBlock(4) + "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n" +
              "*ELEMENT, TYPE=S4, ELSET=A\n2, 1, 2, 3, 4\n");
    EXPECT_EQ(deck.solids(), Sections{});
    EXPECT_EQ(deck.shells(), Sections{});
    deck.sort();
    EXPECT_EQ(deck.reader.GetElemSolidSecNumR(), 1);
    EXPECT_EQ(deck.reader.GetElemShellSecNumR(), 1);
}

TEST(NormaliseSections, WithoutNodesOrSectionsNothingHappens) {
    const std::string texts[] = {
        "", nodeBlock(4), "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n",
        "*ELEMENT, TYPE=S4\n1, 1, 2, 3, 4\n*ELSET, ELSET=A, GENERATE\n9, 1\n*DLOAD\n1, P1, 1.\n"};
    for (const std::string& text : texts) {
        SCOPED_TRACE(text);
        Deck deck(text);
        deck.sort();
        EXPECT_EQ(deck.printed, "");
        EXPECT_EQ(deck.solids(), Sections{});
        EXPECT_EQ(deck.shells(), Sections{});
        EXPECT_FALSE(std::filesystem::exists(deck.logFile()));
    }
}

TEST(NormaliseSections, SortWithoutAnImportDoesNothing) {
    const TempFolder folder;
    CKVOAbaqusReader fresh;
    CKVOAbaqusReader failed;
    CapturedOutput importLines;
    EXPECT_FALSE(failed.ImportInpFile(folder.file("missing.inp").c_str()));
    importLines.text();
    for (CKVOAbaqusReader* reader : {&fresh, &failed}) {
        CapturedOutput output;
        reader->SortData();
        EXPECT_EQ(output.text(), "");
        EXPECT_EQ(solidsOf(*reader), Sections{});
        EXPECT_EQ(shellsOf(*reader), Sections{});
    }
}

TEST(NormaliseSections, WithoutADebugFolderTheRunIsTheSameButForTheLog) {
    const std::string text = nodeBlock(4) +
                             "*ELEMENT, TYPE=C3D4, ELSET=B\n1, 1, 2, 3, 4\n"
                             "*ELEMENT, TYPE=C3D4, ELSET=A\n2, 4, 3, 2, 1\n"
                             "*DLOAD\n2, P1, 1.0\n";
    Deck without(text, DebugFolder::absent);
    without.sort();
    EXPECT_EQ(without.solids(),
              (Sections{{"B", 2, 4, {{0, 1, 2, 3}}}, {"A", 2, 4, {{3, 2, 1, 0}}}}));
    EXPECT_EQ(without.shells(), (Sections{{"Dload_Shell", 1, 4, {{3, 1, 2, 2}}}}));
    EXPECT_EQ(without.printed,
              "elem sec num = 2\nsec 0 , geom type = 2\nelement node num = 4\n"
              "sec 1 , geom type = 2\nelement node num = 4\n");
    EXPECT_FALSE(std::filesystem::exists(without.logFile()));

    Deck with(text);
    with.sort();
    EXPECT_EQ(with.solids(), without.solids());
    EXPECT_EQ(with.shells(), without.shells());
    EXPECT_EQ(with.printed, without.printed + with.logLine());
    EXPECT_TRUE(std::filesystem::exists(with.logFile()));
}

TEST(NormaliseSections, LongNamesAreCutInTheRecordAndNowhereElse) {
    const std::string name79(79, 'N');
    const std::string name = name79 + "TAIL";
    Deck deck(nodeBlock(4) + "*ELEMENT, TYPE=C3D4, ELSET=" + name + "\n1, 1, 2, 3, 4\n" +
              "*ELEMENT, TYPE=S4, ELSET=" + name + "\n2, 1, 2, 3, 4\n");
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{name79, 2, 4, {{0, 1, 2, 3}}}}));
    EXPECT_EQ(deck.shells(), (Sections{{name79, 1, 4, {{0, 1, 2, 3}}}}));
    EXPECT_NE(deck.log().find("Type = C3D4, Elset = " + name + ", Element Node Num = 4\n"),
              std::string::npos);
}

TEST(NormaliseSections, ElementOutsideTheMapIsStoredLikeAnyOther) {
    Deck deck(nodeBlock(4) + "*ELEMENT, TYPE=C3D4, ELSET=A\n-3, 1, 2, 3, 4\n2, 4, 3, 2, 1\n");
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"A", 2, 4, {{0, 1, 2, 3}, {3, 2, 1, 0}}}}));
    EXPECT_EQ(deck.logBlock("Solid Element Data"),
              "------- Solid Element Section 0 --------\n"
              "Type = C3D4, Elset = A, Element Node Num = 4\n"
              "New ID = 0 , Old ID = -3 , 0 1 2 3\n"
              "New ID = 1 , Old ID = 2 , 3 2 1 0\n");
}

}  // namespace
}  // namespace kvocaeio::test
