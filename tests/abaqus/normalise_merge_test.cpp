/// Sections of one set name merged: name order, one width, filling by repetition of the last node.
#include "abaqus/normalise_deck.h"

namespace kvocaeio::test {
namespace {

const char* const kEightNodes =
    "*NODE\n10, 0., 0., 0.\n30, 0., 0., 0.\n20, 0., 0., 0.\n40, 0., 0., 0.\n"
    "50, 0., 0., 0.\n60, 0., 0., 0.\n70, 0., 0., 0.\n80, 0., 0., 0.\n";

std::string eightNodesAndBlocks(const std::string& thirdName) {
    return kEightNodes + std::string("*ELEMENT, TYPE=C3D8, ELSET=ZED\n") +
           "100, 10, 30, 20, 40, 50, 60, 70, 80\n"
           "*ELEMENT, TYPE=C3D4, ELSET=ALPHA\n7, 10, 30, 20, 40\n"
           "*ELEMENT, TYPE=C3D4, ELSET=" +
           thirdName + "\n5, 30, 20, 40, 50\n";
}

const char* const kThreeSolidLines =
    "elem sec num = 3\n"
    "sec 0 , geom type = 2\nelement node num = 8\n"
    "sec 1 , geom type = 2\nelement node num = 4\n"
    "sec 2 , geom type = 2\nelement node num = 4\n";

TEST(NormaliseMerge, RepeatedNameIsMergedAndTheListGoesToNameOrder) {
    Deck deck(eightNodesAndBlocks("ZED"));
    deck.sort();
    EXPECT_EQ(deck.solids(),
              (Sections{{"ALPHA", 2, 4, {{0, 1, 2, 3}}},
                        {"ZED", 2, 8, {{0, 1, 2, 3, 4, 5, 6, 7}, {1, 2, 3, 4, 4, 4, 4, 4}}}}));
    EXPECT_EQ(deck.printed, kThreeSolidLines +
                                std::string("Elset name = ZED , num = 2\n"
                                            "Total Element num = 2 , Total node num = 16\n") +
                                deck.logLine());
    EXPECT_EQ(deck.logBlock("Solid Element Data"),
              "------- Solid Element Section 0 --------\n"
              "Type = C3D4, Elset = ALPHA, Element Node Num = 4\n"
              "New ID = 0 , Old ID = 7 , 0 1 2 3\n"
              "------- Solid Element Section 1 --------\n"
              "Type = C3D8, Elset = ZED, Element Node Num = 8\n"
              "New ID = 0 , Old ID = 100 , 0 1 2 3 4 5 6 7\n"
              "New ID = 1 , Old ID = 5 , 1 2 3 4 4 4 4 4\n");
}

TEST(NormaliseMerge, WithoutARepeatedNameDeckOrderStands) {
    Deck deck(eightNodesAndBlocks("MID"));
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"ZED", 2, 8, {{0, 1, 2, 3, 4, 5, 6, 7}}},
                                       {"ALPHA", 2, 4, {{0, 1, 2, 3}}},
                                       {"MID", 2, 4, {{1, 2, 3, 4}}}}));
    EXPECT_EQ(deck.printed, kThreeSolidLines + deck.logLine());
}

TEST(NormaliseMerge, NamesGoInOrderOfTheirBytesShorterFirst) {
    std::string text = nodeBlock(3);
    const char* const names[] = {"\xC4", "Z", "AB", "A", "", "A-", "Z", "A B"};
    for (const char* name : names)
        text += "*ELEMENT, TYPE=S3, ELSET=" + std::string(name) + "\n1, 1, 2, 3\n";
    Deck deck(text);
    deck.sort();
    std::vector<std::string> order;
    for (const SortedSection& section : deck.shells())
        order.push_back(section.elset);
    EXPECT_EQ(order, (std::vector<std::string>{"", "A", "A B", "A-", "AB", "Z", "\xC4"}));
}

TEST(NormaliseMerge, SolidsAndShellsDecideIndependently) {
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=C3D4, ELSET=D\n1, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=S3, ELSET=F\n2, 1, 2, 3\n"
              "*ELEMENT, TYPE=C3D4, ELSET=C\n3, 4, 3, 2, 1\n"
              "*ELEMENT, TYPE=S3, ELSET=E\n4, 2, 3, 4\n"
              "*ELEMENT, TYPE=S3, ELSET=F\n5, 3, 4, 1\n");
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"D", 2, 4, {{0, 1, 2, 3}}}, {"C", 2, 4, {{3, 2, 1, 0}}}}));
    EXPECT_EQ(deck.shells(),
              (Sections{{"E", 1, 3, {{1, 2, 3}}}, {"F", 1, 4, {{0, 1, 2, 2}, {2, 3, 0, 0}}}}));
}

TEST(NormaliseMerge, SolidAndShellBlocksOfOneNameStayApart) {
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=S4, ELSET=A\n2, 1, 2, 3, 4\n");
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"A", 2, 4, {{0, 1, 2, 3}}}}));
    EXPECT_EQ(deck.shells(), (Sections{{"A", 1, 4, {{0, 1, 2, 3}}}}));
    EXPECT_EQ(deck.printed.find("Elset name"), std::string::npos);
}

TEST(NormaliseMerge, BlockOfUnknownTypeIsNoRepetition) {
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=B31, ELSET=A\n2, 1, 2\n");
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"A", 2, 4, {{0, 1, 2, 3}}}}));
}

TEST(NormaliseMerge, SolidsAreFilledToEightByTheirLastNode) {
    struct Case {
        const char* type;
        int width;
        std::vector<int> written;
    };
    const Case cases[] = {
        {"C3D4", 4, {0, 1, 2, 3, 3, 3, 3, 3}},   {"C3D5", 5, {0, 1, 2, 3, 4, 4, 4, 4}},
        {"C3D6", 6, {0, 1, 2, 3, 4, 5, 5, 5}},   {"C3D8", 8, {0, 1, 2, 3, 4, 5, 6, 7}},
        {"C3D10", 10, {0, 1, 2, 3, 3, 3, 3, 3}}, {"C3D15", 15, {0, 1, 2, 3, 4, 5, 5, 5}},
        {"C3D20", 20, {0, 1, 2, 3, 4, 5, 6, 7}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.type);
        Deck deck(nodeBlock(20) + "*ELEMENT, TYPE=C3D4, ELSET=A\n9, 5, 6, 7, 8\n" +
                  "*ELEMENT, TYPE=" + c.type + ", ELSET=A\n" + elementLine(4, 1, c.width));
        deck.sort();
        EXPECT_EQ(deck.solids(), (Sections{{"A", 2, 8, {{4, 5, 6, 7, 7, 7, 7, 7}, c.written}}}));
        const std::string start =
            "------- Solid Element Section 0 --------\n"
            "Type = C3D8, Elset = A, Element Node Num = 8\n"
            "New ID = 0 , Old ID = 9 , 4 5 6 7 7 7 7 7\n"
            "New ID = 1 , Old ID = 4 ,";
        EXPECT_EQ(deck.logBlock("Solid Element Data").substr(0, start.size()), start);
    }
}

TEST(NormaliseMerge, TwoTetrahedronBlocksMakeASectionOfWidthEight) {
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=C3D4, ELSET=A\n2, 4, 3, 2, 1\n");
    deck.sort();
    EXPECT_EQ(deck.logBlock("Solid Element Data"),
              "------- Solid Element Section 0 --------\n"
              "Type = C3D8, Elset = A, Element Node Num = 8\n"
              "New ID = 0 , Old ID = 1 , 0 1 2 3 3 3 3 3\n"
              "New ID = 1 , Old ID = 2 , 3 2 1 0 0 0 0 0\n");
    EXPECT_EQ(deck.printed,
              "elem sec num = 2\nsec 0 , geom type = 2\nelement node num = 4\n"
              "sec 1 , geom type = 2\nelement node num = 4\n"
              "Elset name = A , num = 2\nTotal Element num = 2 , Total node num = 16\n" +
                  deck.logLine());
}

TEST(NormaliseMerge, TrianglesAndQuadranglesMakeASectionOfWidthFour) {
    Deck deck(nodeBlock(5) +
              "*ELEMENT, TYPE=S3, ELSET=A\n3, 1, 2, 3\n1, 3, 4, 5\n"
              "*ELEMENT, TYPE=S4, ELSET=A\n2, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=R3D4, ELSET=A\n4, 5, 4, 3, 2\n");
    deck.sort();
    EXPECT_EQ(deck.shells(),
              (Sections{{"A", 1, 4, {{0, 1, 2, 2}, {2, 3, 4, 4}, {0, 1, 2, 3}, {4, 3, 2, 2}}}}));
    EXPECT_EQ(deck.logBlock("Shell Element Data"),
              "------- Shell Element Section 0 --------\n"
              "Type = S4, Elset = A, Element Node Num = 4\n"
              "New ID = 0 , Old ID = 3 , 0 1 2 2\n"
              "New ID = 1 , Old ID = 1 , 2 3 4 4\n"
              "New ID = 2 , Old ID = 2 , 0 1 2 3\n"
              "New ID = 3 , Old ID = 4 , 4 3 2 2\n");
    EXPECT_EQ(deck.printed,
              "elem sec num = 3\nsec 0 , geom type = 1\nsec 1 , geom type = 1\n"
              "sec 2 , geom type = 1\n"
              "Elset name = A , num = 3\nTotal Element num = 4 , Total node num = 16\n" +
                  deck.logLine());
}

TEST(NormaliseMerge, BlocksWithoutANameMergeUnderTheEmptyOne) {
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=C3D4\n1, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=C3D4, ELSET=A\n2, 2, 1, 4, 3\n"
              "*ELEMENT, TYPE=C3D4\n3, 4, 3, 2, 1\n");
    deck.sort();
    EXPECT_EQ(deck.solids(),
              (Sections{{"", 2, 8, {{0, 1, 2, 3, 3, 3, 3, 3}, {3, 2, 1, 0, 0, 0, 0, 0}}},
                        {"A", 2, 4, {{1, 0, 3, 2}}}}));
    EXPECT_NE(deck.printed.find("Elset name =  , num = 2\n"), std::string::npos);
}

TEST(NormaliseMerge, SectionAloneUnderItsNameIsCopiedWhole) {
    Deck deck(nodeBlock(10) + "*ELEMENT, TYPE=C3D5, ELSET=B\n1, 1, 2, 3, 4, 5\n" +
              "*ELEMENT, TYPE=C3D5, ELSET=B\n2, 5, 4, 3, 2, 1\n" +
              "*ELEMENT, TYPE=C3D10M, ELSET=A\n" + elementLine(30, 1, 10) + elementLine(20, 1, 10));
    deck.sort();
    EXPECT_EQ(deck.logBlock("Solid Element Data"),
              "------- Solid Element Section 0 --------\n"
              "Type = C3D10M, Elset = A, Element Node Num = 4\n"
              "New ID = 0 , Old ID = 30 , 0 1 2 3\n"
              "New ID = 1 , Old ID = 20 , 0 1 2 3\n"
              "------- Solid Element Section 1 --------\n"
              "Type = C3D8, Elset = B, Element Node Num = 8\n"
              "New ID = 0 , Old ID = 1 , 0 1 2 3 4 4 4 4\n"
              "New ID = 1 , Old ID = 2 , 4 3 2 1 0 0 0 0\n");
}

TEST(NormaliseMerge, LinesComeInNameOrderSolidsFirst) {
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 2, 3\n*ELEMENT, TYPE=S3, ELSET=A\n2, 1, 2, 3\n"
              "*ELEMENT, TYPE=C3D4, ELSET=C\n3, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=C3D4, ELSET=B\n4, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=C3D4, ELSET=C\n5, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=C3D4, ELSET=B\n6, 1, 2, 3, 4\n7, 1, 2, 3, 4\n");
    deck.sort();
    const std::size_t at = deck.printed.find("Elset name");
    ASSERT_NE(at, std::string::npos);
    EXPECT_EQ(deck.printed.substr(at),
              "Elset name = B , num = 2\nTotal Element num = 3 , Total node num = 24\n"
              "Elset name = C , num = 2\nTotal Element num = 2 , Total node num = 16\n"
              "Elset name = A , num = 2\nTotal Element num = 2 , Total node num = 8\n" +
                  deck.logLine());
}

TEST(NormaliseMerge, EmptyQuadraticBlockInAGroupAddsNothing) {
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=C3D20, ELSET=A\n"
              "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=C3D10, ELSET=A\n");
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"A", 2, 8, {{0, 1, 2, 3, 3, 3, 3, 3}}}}));
    EXPECT_NE(deck.printed.find("Elset name = A , num = 3\n"
                                "Total Element num = 1 , Total node num = 8\n"),
              std::string::npos);
}

TEST(NormaliseMerge, GroupOfEmptyBlocksIsAnEmptySectionOfFullWidth) {
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=C3D10, ELSET=A\n*ELEMENT, TYPE=C3D10, ELSET=A\n"
              "*ELEMENT, TYPE=S3, ELSET=B\n*ELEMENT, TYPE=S3, ELSET=B\n");
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"A", 2, 8, {}}}));
    EXPECT_EQ(deck.shells(), (Sections{{"B", 1, 4, {}}}));
    EXPECT_NE(deck.printed.find("Total Element num = 0 , Total node num = 0\n"), std::string::npos);
}

TEST(NormaliseMerge, NamesAreComparedBeyondTheRecordsField) {
    const std::string name79(79, 'N');
    Deck deck(nodeBlock(3) + "*ELEMENT, TYPE=S3, ELSET=" + name79 + "B\n1, 1, 2, 3\n" +
              "*ELEMENT, TYPE=S3, ELSET=" + name79 + "A\n2, 2, 3, 1\n" +
              "*ELEMENT, TYPE=S3, ELSET=" + name79 + "B\n3, 3, 1, 2\n");
    deck.sort();
    EXPECT_EQ(deck.shells(), (Sections{{name79, 1, 3, {{1, 2, 0}}},
                                       {name79, 1, 4, {{0, 1, 2, 2}, {2, 0, 1, 1}}}}));
}

TEST(NormaliseMerge, NodesWithoutARowStayZeroWhenFilled) {
    Deck deck(nodeBlock(5) +
              "*ELEMENT, TYPE=C3D6, ELSET=A\n1, 5, 4, 3, 2, 1, 99\n"
              "*ELEMENT, TYPE=C3D5, ELSET=A\n2, 5, 99, 3, 2, 4\n");
    deck.sort();
    EXPECT_EQ(deck.solids(),
              (Sections{{"A", 2, 8, {{4, 3, 2, 1, 0, 0, 0, 0}, {4, 0, 2, 1, 3, 3, 3, 3}}}}));
}

}  // namespace
}  // namespace kvocaeio::test
