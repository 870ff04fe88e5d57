/// A second sort of one model: what it builds on, what it makes anew.
#include "abaqus/normalise_deck.h"

namespace kvocaeio::test {
namespace {

TEST(NormaliseSecondCall, SetsGetASecondCopyOfTheirMembers) {
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=S4, ELSET=S\n1, 1, 2, 3, 4\n*ELEMENT, TYPE=S4, ELSET=T\n"
              "*ELSET, ELSET=B\n3, 1\n*ELSET, ELSET=A, GENERATE\n7, 9, 2\n");
    deck.sort();
    deck.sort();
    EXPECT_EQ(deck.logBlock("Elset Data"),
              "------- Elset Section 0 --------\n"
              "Elset name = A, len = 1\n"
              "  Elem id = 7\n"
              "  Elem id = 9\n"
              "  Elem id = 7\n"
              "  Elem id = 9\n"
              "------- Elset Section 1 --------\n"
              "Elset name = B, len = 1\n"
              "  Elem id = 3\n"
              "  Elem id = 1\n"
              "  Elem id = 3\n"
              "  Elem id = 1\n");
}

TEST(NormaliseSecondCall, ShiftedSetsExtendTheListsThatTheirIndexNames) {
    // First call: lists A 1 3, B 2, D 4, E 5 under the indices 0, 1, 3, 4. In the second one D goes
    // to the list of E, and the members of E are dropped.
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=S4, ELSET=S\n1, 1, 2, 3, 4\n"
              "*ELSET, ELSET=A\n1\n*ELSET, ELSET=B\n2\n*ELSET, ELSET=A\n3\n"
              "*ELSET, ELSET=D\n4\n*ELSET, ELSET=E\n5\n");
    deck.sort();
    deck.sort();
    EXPECT_EQ(deck.logBlock("Elset Data"),
              "------- Elset Section 0 --------\n"
              "Elset name = A, len = 1\n"
              "  Elem id = 1\n"
              "  Elem id = 3\n"
              "  Elem id = 1\n"
              "  Elem id = 3\n"
              "------- Elset Section 1 --------\n"
              "Elset name = B, len = 1\n"
              "  Elem id = 2\n"
              "  Elem id = 2\n"
              "------- Elset Section 2 --------\n"
              "Elset name = D, len = 1\n"
              "  Elem id = 5\n"
              "  Elem id = 4\n"
              "------- Elset Section 3 --------\n"
              "Elset name = E, len = 1\n");
}

TEST(NormaliseSecondCall, MergeRunsAgainToTheSameResult) {
    Deck deck(nodeBlock(5) +
              "*ELEMENT, TYPE=C3D5, ELSET=B\n1, 1, 2, 3, 4, 5\n"
              "*ELEMENT, TYPE=C3D4, ELSET=A\n2, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=C3D4, ELSET=B\n3, 4, 3, 2, 1\n");
    deck.sort();
    const std::string printed = deck.printed;
    const std::string log = deck.log();
    const Sections expected{{"A", 2, 4, {{0, 1, 2, 3}}},
                            {"B", 2, 8, {{0, 1, 2, 3, 4, 4, 4, 4}, {3, 2, 1, 0, 0, 0, 0, 0}}}};
    EXPECT_EQ(deck.solids(), expected);
    deck.sort();
    EXPECT_EQ(deck.solids(), expected);
    EXPECT_EQ(deck.printed, printed);
    EXPECT_EQ(deck.log(), log);
}

TEST(NormaliseSecondCall, SplitRunsAgainToTheSameResult) {
    Deck deck(nodeBlock(11) + "*ELEMENT, TYPE=C3D10, ELSET=ALL\n" + elementLine(1, 1, 10) +
              elementLine(2, 2, 10) +
              "*ELSET, ELSET=P, GENERATE\n2, 2, 1\n*ELSET, ELSET=Q, GENERATE\n1, 2, 2\n");
    const Sections expected{{"P", 2, 4, {{1, 2, 3, 4}}}, {"Q", 2, 4, {{0, 1, 2, 3}, {0, 0, 0, 0}}}};
    deck.sort();
    const std::string printed = deck.printed;
    EXPECT_EQ(deck.solids(), expected);
    deck.sort();
    EXPECT_EQ(deck.solids(), expected);
    EXPECT_EQ(deck.printed, printed);
}

TEST(NormaliseSecondCall, FacesOfLoadsAreMappedTwiceAndAddedAgain) {
    // Face 1 of the hexahedron has the OIDs 1 4 3 2, so the new IDs 0 3 2 1. Taken for OIDs in the
    // second call these become 0 2 1 0: no node has the OID 0.
    Deck deck(nodeBlock(8) +
              "*ELEMENT, TYPE=C3D8, ELSET=A\n1, 1, 2, 3, 4, 5, 6, 7, 8\n"
              "*DLOAD\n1, P1, 1.\n1, P2, 1.\n");
    deck.sort();
    EXPECT_EQ(deck.shells(), (Sections{{"Dload_Shell", 1, 4, {{0, 3, 2, 1}, {4, 5, 6, 7}}}}));
    deck.sort();
    EXPECT_EQ(
        deck.shells(),
        (Sections{
            {"Dload_Shell", 1, 4, {{0, 2, 1, 0}, {3, 4, 5, 6}, {0, 3, 2, 1}, {4, 5, 6, 7}}}}));
    EXPECT_EQ(deck.logBlock("Dload Data"),
              "Face Elem Num = 4\n"
              "Added face : (0, 2, 1, 0)\n"
              "Added face : (3, 4, 5, 6)\n"
              "Added face : (0, 3, 2, 1)\n"
              "Added face : (4, 5, 6, 7)\n");
    EXPECT_EQ(deck.logBlock("Shell Element Data"),
              "------- Shell Element Section 0 --------\n"
              "Type = S4, Elset = Dload_Shell, Element Node Num = 4\n"
              "New ID = 0 , Old ID = 0 , 0 2 1 0\n"
              "New ID = 1 , Old ID = 1 , 3 4 5 6\n"
              "New ID = 2 , Old ID = 2 , 0 3 2 1\n"
              "New ID = 3 , Old ID = 3 , 4 5 6 7\n");
}

TEST(NormaliseSecondCall, NewIdAboveTheMapBecomesZero) {
    // The nodes 1 to 4 stand in the rows 4 to 7; of these numbers only 4 is an OID of the map.
    Deck deck(nodeBlock(4) + nodeBlock(4) +
              "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n*DLOAD\n1, P2, 1.\n");
    deck.sort();
    EXPECT_EQ(deck.shells(), (Sections{{"Dload_Shell", 1, 4, {{4, 5, 7, 7}}}}));
    deck.sort();
    EXPECT_EQ(deck.shells(), (Sections{{"Dload_Shell", 1, 4, {{7, 0, 0, 0}, {4, 5, 7, 7}}}}));
}

TEST(NormaliseSecondCall, FacesOfSurfacesAreMappedTwiceAndAddedTwice) {
    // The set lists its element twice by then, so the second call adds two tuples.
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n"
              "*ELSET, ELSET=E\n1\n*SURFACE, TYPE=ELEMENT, NAME=F\nE, S3\n");
    deck.sort();
    EXPECT_EQ(deck.shells(), (Sections{{"Surface_Shell", 1, 4, {{1, 2, 3, 3}}}}));
    deck.sort();
    EXPECT_EQ(deck.shells(),
              (Sections{{"Surface_Shell", 1, 4, {{0, 1, 2, 2}, {1, 2, 3, 3}, {1, 2, 3, 3}}}}));
}

TEST(NormaliseSecondCall, FaceSectionsOfTheFirstCallAreDropped) {
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=S4, ELSET=Z\n1, 1, 2, 3, 4\n*ELEMENT, TYPE=S3, ELSET=A\n2, 1, 2, 3\n"
              "*ELSET, ELSET=E\n1\n*SURFACE, TYPE=ELEMENT, NAME=F\nE, S3\n*DLOAD\n1, P3, 1.\n");
    for (int call = 1; call <= 3; ++call) {
        deck.sort();
        std::vector<std::string> names;
        for (const SortedSection& section : deck.shells())
            names.push_back(section.elset);
        EXPECT_EQ(names, (std::vector<std::string>{"Z", "A", "Dload_Shell", "Surface_Shell"}));
    }
}

TEST(NormaliseSecondCall, LoneShellSectionIsSplitAgainAlthoughFacesStoodBesideIt) {
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=S4, ELSET=ALL\n1, 1, 2, 3, 4\n2, 4, 3, 2, 1\n"
              "*ELSET, ELSET=P, GENERATE\n2, 2, 1\n*DLOAD\n1, P3, 1.\n");
    deck.sort();
    EXPECT_EQ(deck.shells(),
              (Sections{{"P", 1, 4, {{3, 2, 1, 0}}}, {"Dload_Shell", 1, 4, {{1, 2, 3, 3}}}}));
    deck.sort();
    EXPECT_EQ(deck.shells(), (Sections{{"P", 1, 4, {{3, 2, 1, 0}}},
                                       {"Dload_Shell", 1, 4, {{0, 1, 2, 2}, {1, 2, 3, 3}}}}));
}

}  // namespace
}  // namespace kvocaeio::test
