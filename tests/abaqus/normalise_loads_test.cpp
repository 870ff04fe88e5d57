/// Faces named by distributed loads become the section "Dload_Shell".
#include "abaqus/normalise_faces.h"

namespace kvocaeio::test {
namespace {

/// The section that a deck's loads make; nothing where they make none.
Sections loadFaces(const std::string& deckText) {
    Deck deck(deckText);
    deck.sort();
    Sections shells = deck.shells();
    if (shells.empty() || shells.back().elset != "Dload_Shell")
        return {};
    return {shells.back()};
}

Sections dloadShell(std::vector<std::vector<int>> faces) {
    return {{"Dload_Shell", 1, 4, std::move(faces)}};
}

TEST(NormaliseLoads, FacesOfEveryFamily) {
    for (const FaceCase& c : kFaceCases) {
        SCOPED_TRACE(std::string(c.type) + " face " + std::to_string(c.face));
        EXPECT_EQ(loadFaces(oneElement(c) + "*DLOAD\n1, P" + std::to_string(c.face) + ", 1.5\n"),
                  c.nodes.empty() ? Sections{} : dloadShell({c.nodes}));
    }
}

const std::string kHexahedron =
    nodeBlock(8) + "*ELEMENT, TYPE=C3D8, ELSET=A\n" + "1, 1, 2, 3, 4, 5, 6, 7, 8\n";

TEST(NormaliseLoads, OtherLabelsArePassedOver) {
    const char* const labels[] = {"p3",   "P",  "P0", "P7", "P9", "P10", "P33",
                                  "P3NU", "S3", "BX", "3",  "PX", "XP3", "F3"};
    for (const char* label : labels) {
        SCOPED_TRACE(label);
        EXPECT_EQ(loadFaces(kHexahedron + "*DLOAD\n1, " + label + ", 1.5\n"), Sections{});
    }
}

TEST(NormaliseLoads, WithoutALabelledFaceNoSectionIsMade) {
    Deck deck(kHexahedron + "*ELEMENT, TYPE=S3, ELSET=B\n2, 1, 2, 3\n*DLOAD\n1, GRAV, 9.81\n");
    deck.sort();
    EXPECT_EQ(deck.shells(), (Sections{{"B", 1, 3, {{0, 1, 2}}}}));
    EXPECT_EQ(deck.logBlock("Dload Data"), "Face Elem Num = 0\n");
}

TEST(NormaliseLoads, FacesStandInTheOrderOfTheLinesWithRepetitions) {
    EXPECT_EQ(loadFaces(kHexahedron +
                        "*DLOAD\n1, P3, 0.0\n1, P7, 1.0\n1, P1\n*STEP\n*DLOAD\n1, P3, -2.5\n"),
              dloadShell({{0, 1, 5, 4}, {0, 3, 2, 1}, {0, 1, 5, 4}}));
}

TEST(NormaliseLoads, FaceSharedByTwoElementsStandsOnceForEach) {
    EXPECT_EQ(
        loadFaces(nodeBlock(12) + "*ELEMENT, TYPE=C3D8, ELSET=A\n1, 1, 2, 3, 4, 5, 6, 7, 8\n"
                                  "2, 5, 6, 7, 8, 9, 10, 11, 12\n*DLOAD\n1, P2, 1.\n2, P1, 1.\n"),
        dloadShell({{4, 5, 6, 7}, {4, 7, 6, 5}}));
}

TEST(NormaliseLoads, SectionStandsInTheLogWithItsFaces) {
    Deck deck(kHexahedron +
              "*ELEMENT, TYPE=C3D4, ELSET=B\n2, 5, 6, 7, 8\n*DLOAD\n1, P3, 1.0\n2, P2, 1.0\n");
    deck.sort();
    EXPECT_EQ(deck.logBlock("Shell Element Data"),
              "------- Shell Element Section 0 --------\n"
              "Type = S4, Elset = Dload_Shell, Element Node Num = 4\n"
              "New ID = 0 , Old ID = 0 , 0 1 5 4\n"
              "New ID = 1 , Old ID = 1 , 4 5 7 7\n");
    EXPECT_EQ(deck.logBlock("Dload Data"),
              "Face Elem Num = 2\n"
              "Added face : (0, 1, 5, 4)\n"
              "Added face : (4, 5, 7, 7)\n");
}

TEST(NormaliseLoads, StagePrintsNothing) {
    Deck deck(kHexahedron + "*DLOAD\n1, P3, 1.0\n1, BX, 1.0\n");
    deck.sort();
    EXPECT_EQ(deck.printed,
              "elem sec num = 1\nsec 0 , geom type = 2\nelement node num = 8\n" + deck.logLine());
}

TEST(NormaliseLoads, SectionStandsBehindTheMergedShellSections) {
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=S4, ELSET=Z\n1, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=S3, ELSET=Z\n2, 1, 2, 3\n"
              "*ELEMENT, TYPE=S4, ELSET=E\n3, 4, 3, 2, 1\n*DLOAD\n1, P1, 1.0\n");
    deck.sort();
    EXPECT_EQ(deck.shells(), (Sections{{"E", 1, 4, {{3, 2, 1, 0}}},
                                       {"Z", 1, 4, {{0, 1, 2, 3}, {0, 1, 2, 2}}},
                                       {"Dload_Shell", 1, 4, {{0, 2, 1, 1}}}}));
}

TEST(NormaliseLoads, SetNameInTheFirstFieldRepeatsTheOidBefore) {
    const std::string deck = nodeBlock(5) +
                             "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n2, 2, 3, 4, 5\n"
                             "*ELEMENT, TYPE=C3D4, ELSET=B\n3, 5, 4, 3, 2\n";
    EXPECT_EQ(loadFaces(deck + "*DLOAD\n2, P1, 1.0\nTOP, P2, 1.0\n3, P2, 1.0\n"),
              dloadShell({{1, 3, 2, 2}, {1, 2, 4, 4}, {4, 3, 1, 1}}));
    // Each block starts with 0, an OID that no element has.
    EXPECT_EQ(loadFaces(deck + "*DLOAD\n2, P1, 1.0\n*DLOAD\nTOP, P2, 1.0\n"),
              dloadShell({{1, 3, 2, 2}, {0, 1, 3, 3}}));
}

TEST(NormaliseLoads, UnusedOidNamesTheFirstElementOfTheFirstSection) {
    const std::string solid = "*ELEMENT, TYPE=C3D4, ELSET=B\n7, 5, 4, 3, 2\n";
    EXPECT_EQ(loadFaces(nodeBlock(5) + "*ELEMENT, TYPE=C3D4, ELSET=A\n9, 1, 2, 3, 4\n" + solid +
                        "*DLOAD\n8, P2, 1.0\n0, P1, 1.0\n"),
              dloadShell({{0, 1, 3, 3}, {0, 2, 1, 1}}));
    // The first section is one of unknown type, whose elements have no faces, or has no element.
    EXPECT_EQ(loadFaces(nodeBlock(5) + "*ELEMENT, TYPE=B31, ELSET=A\n9, 1, 2\n" + solid +
                        "*DLOAD\n8, P2, 1.0\n9, P1, 1.0\n"),
              Sections{});
    EXPECT_EQ(loadFaces(nodeBlock(5) + "*ELEMENT, TYPE=C3D4, ELSET=A\n" + solid +
                        "*DLOAD\n6, P2, 1.0\n7, P2, 1.0\n"),
              dloadShell({{4, 3, 1, 1}}));
}

TEST(NormaliseLoads, OidOutsideTheMapHasNoFace) {
    EXPECT_EQ(loadFaces(kHexahedron +
                        "*DLOAD\n2, P1, 1.\n-1, P1, 1.\n2147483647, P1, 1.\n-2147483648, P1, 1.\n"),
              Sections{});
}

TEST(NormaliseLoads, LaterElementOfARepeatedOidIsTaken) {
    EXPECT_EQ(loadFaces(nodeBlock(8) +
                        "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n"
                        "*ELEMENT, TYPE=C3D4, ELSET=B\n1, 5, 6, 7, 8\n*DLOAD\n1, P2, 1.\n"),
              dloadShell({{4, 5, 7, 7}}));
}

TEST(NormaliseLoads, FaceNodeWithoutARowBecomesRowZero) {
    EXPECT_EQ(loadFaces("*NODE\n9, 0., 0., 0.\n2, 0., 0., 0.\n3, 0., 0., 0.\n"
                        "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 2, 5, -4, 2147483647\n"
                        "2, 3, 10, 2, 9\n*DLOAD\n1, P1, 1.\n1, P2, 1.\n2, P2, 1.\n"),
              dloadShell({{1, 0, 0, 0}, {1, 0, 0, 0}, {2, 0, 0, 0}}));
}

TEST(NormaliseLoads, ElementThatTheSplitDropsStillHasItsFace) {
    Deck deck(nodeBlock(5) +
              "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n2, 2, 3, 4, 5\n"
              "*ELSET, ELSET=P, GENERATE\n1, 1, 1\n*DLOAD\n2, P2, 1.\n");
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"P", 2, 4, {{0, 1, 2, 3}}}}));
    EXPECT_EQ(deck.shells(), dloadShell({{1, 2, 4, 4}}));
}

}  // namespace
}  // namespace kvocaeio::test
