/// Faces named by surfaces become the section "Surface_Shell".
#include "abaqus/normalise_faces.h"

namespace kvocaeio::test {
namespace {

/// The section that a deck's surfaces make; nothing where they make none.
Sections surfaceFaces(const std::string& deckText) {
    Deck deck(deckText);
    deck.sort();
    Sections shells = deck.shells();
    if (shells.empty() || shells.back().elset != "Surface_Shell")
        return {};
    return {shells.back()};
}

Sections surfaceShell(std::vector<std::vector<int>> faces) {
    return {{"Surface_Shell", 1, 4, std::move(faces)}};
}

const std::string kSurface = "*SURFACE, TYPE=ELEMENT, NAME=SKIN\n";

/// Hexahedra 1 and 2, pyramid 3, tetrahedron 4.
const std::string kMesh = nodeBlock(16) +
                          "*ELEMENT, TYPE=C3D8, ELSET=HEXA\n1, 1, 2, 3, 4, 5, 6, 7, 8\n"
                          "2, 5, 6, 7, 8, 9, 10, 11, 12\n"
                          "*ELEMENT, TYPE=C3D5, ELSET=PYRA\n3, 9, 10, 11, 12, 13\n"
                          "*ELEMENT, TYPE=C3D4, ELSET=TETRA\n4, 13, 14, 15, 16\n";

TEST(NormaliseSurfaces, FacesOfEveryFamily) {
    for (const FaceCase& c : kFaceCases) {
        SCOPED_TRACE(std::string(c.type) + " face " + std::to_string(c.face));
        EXPECT_EQ(surfaceFaces(oneElement(c) + "*ELSET, ELSET=E\n1\n" + kSurface + "E, S" +
                               std::to_string(c.face) + "\n"),
                  c.nodes.empty() ? Sections{} : surfaceShell({c.nodes}));
    }
}

TEST(NormaliseSurfaces, FacesStandInTheOrderOfTheSet) {
    EXPECT_EQ(surfaceFaces(kMesh + "*ELSET, ELSET=A\n1, 2\n" + kSurface + "A, S2\n"),
              surfaceShell({{4, 5, 6, 7}, {8, 9, 10, 11}}));
    EXPECT_EQ(surfaceFaces(kMesh + "*ELSET, ELSET=A\n2, 1, 2\n" + kSurface + "A, S2\n"),
              surfaceShell({{8, 9, 10, 11}, {4, 5, 6, 7}, {8, 9, 10, 11}}));
}

TEST(NormaliseSurfaces, GeneratedSetsServeAsWell) {
    EXPECT_EQ(surfaceFaces(kMesh + "*ELSET, ELSET=A, GENERATE\n1, 4, 1\n" + kSurface + "A, S2\n"),
              surfaceShell({{4, 5, 6, 7}, {8, 9, 10, 11}, {12, 13, 15, 15}}));
}

TEST(NormaliseSurfaces, SecondCharacterOfTheLabelIsTheFace) {
    const std::string deck = kMesh + "*ELSET, ELSET=A\n1\n" + kSurface + "A, ";
    const std::vector<int> one{0, 3, 2, 1};
    EXPECT_EQ(surfaceFaces(deck + "S1\n"), surfaceShell({one}));
    EXPECT_EQ(surfaceFaces(deck + "s1\n"), surfaceShell({one}));
    EXPECT_EQ(surfaceFaces(deck + "S10\n"), surfaceShell({one}));
    EXPECT_EQ(surfaceFaces(deck + "P1\n"), surfaceShell({one}));
    EXPECT_EQ(surfaceFaces(deck + "21XYZ\n"), surfaceShell({one}));
    EXPECT_EQ(surfaceFaces(deck + "S6, S1\n"), surfaceShell({{0, 4, 7, 3}}));
}

TEST(NormaliseSurfaces, LabelsWithoutAFaceNumberAreWithoutAFace) {
    const char* const labels[] = {"S",  "1",   "SPOS", "SNEG", "S0", "S7", "S8",
                                  "S9", "S-1", "S+1",  "SS1",  "S.", ""};
    for (const char* label : labels) {
        SCOPED_TRACE(label);
        EXPECT_EQ(
            surfaceFaces(kMesh + "*ELSET, ELSET=A\n1, 2, 3, 4\n" + kSurface + "A, " + label + "\n"),
            Sections{});
    }
}

TEST(NormaliseSurfaces, ItemsMustBeNamesOfSets) {
    // Element labels, unknown names, names of blocks, of surfaces, and parts of names are none.
    EXPECT_EQ(surfaceFaces(kMesh + "*ELSET, ELSET=AB\n1\n" + kSurface +
                           "1, S1\nNONE, S1\nHEXA, S1\nSKIN, S1\nA, S1\nABC, S1\n"),
              Sections{});
    EXPECT_EQ(surfaceFaces(kMesh + "*ELSET, ELSET=12\n1\n" + kSurface + "12, S1\n"),
              surfaceShell({{0, 3, 2, 1}}));
    EXPECT_EQ(surfaceFaces(kMesh + "*ELSET, ELSET=HEXA\n2\n" + kSurface + "hexa, S1\n"),
              surfaceShell({{4, 7, 6, 5}}));
}

TEST(NormaliseSurfaces, ElementsWithoutTheFaceLeaveTheOthersTheirs) {
    EXPECT_EQ(surfaceFaces(kMesh + "*ELSET, ELSET=A\n3, 4, 1\n" + kSurface + "A, S1\nA, S5\n"),
              surfaceShell({{12, 14, 13, 13}, {0, 3, 2, 1}, {2, 3, 7, 6}}));
}

TEST(NormaliseSurfaces, LinesAndSurfacesFollowEachOtherWithRepetitions) {
    EXPECT_EQ(surfaceFaces(kMesh + "*ELSET, ELSET=A\n1\n*ELSET, ELSET=B\n2\n" + kSurface +
                           "B, S1\nA, S3\nA, S3\n" + "*SURFACE, TYPE=ELEMENT\nB, S1\n"),
              surfaceShell({{4, 7, 6, 5}, {0, 1, 5, 4}, {0, 1, 5, 4}, {4, 7, 6, 5}}));
}

TEST(NormaliseSurfaces, MemberThatIsANameGivesTheFirstElementsFace) {
    EXPECT_EQ(surfaceFaces(kMesh + "*ELSET, ELSET=A\n4, OTHER\n" + kSurface + "A, S2\n"),
              surfaceShell({{12, 13, 15, 15}, {4, 5, 6, 7}}));
}

TEST(NormaliseSurfaces, MembersOutsideTheMapHaveNoFace) {
    EXPECT_EQ(surfaceFaces(kMesh + "*ELSET, ELSET=A\n-1, 5, 2147483647\n" + kSurface + "A, S2\n"),
              Sections{});
    EXPECT_EQ(surfaceFaces(kMesh + "*ELSET, ELSET=A, GENERATE\n2147483640, 2147483647\n" +
                           "*ELSET, ELSET=B, GENERATE\n-3, 1\n" + kSurface + "A, S2\nB, S2\n"),
              surfaceShell({{4, 5, 6, 7}, {4, 5, 6, 7}}));
}

TEST(NormaliseSurfaces, ShiftedSetReadsTheListThatItsIndexNames) {
    const std::string sets =
        "*ELSET, ELSET=A\n1\n*ELSET, ELSET=B\n4\n*ELSET, ELSET=A\n4\n"
        "*ELSET, ELSET=D\n1\n*ELSET, ELSET=E\n2\n";
    EXPECT_EQ(surfaceFaces(kMesh + sets + kSurface + "D, S2\n"), surfaceShell({{8, 9, 10, 11}}));
    EXPECT_EQ(surfaceFaces(kMesh + sets + kSurface + "E, S2\n"), Sections{});
    EXPECT_EQ(surfaceFaces(kMesh + sets + kSurface + "A, S2\n"),
              surfaceShell({{4, 5, 6, 7}, {12, 13, 15, 15}}));
}

TEST(NormaliseSurfaces, SectionStandsBehindThatOfTheLoads) {
    const std::string surface = "*ELSET, ELSET=A\n1\n" + kSurface + "A, S2\n";
    const std::string shell = "*ELEMENT, TYPE=S3, ELSET=Z\n9, 1, 2, 3\n";
    Deck both(kMesh + surface + "*DLOAD\n1, P2, 1.0\n" + shell);
    both.sort();
    EXPECT_EQ(both.shells(), (Sections{{"Z", 1, 3, {{0, 1, 2}}},
                                       {"Dload_Shell", 1, 4, {{4, 5, 6, 7}}},
                                       {"Surface_Shell", 1, 4, {{4, 5, 6, 7}}}}));
    Deck alone(kMesh + surface + shell);
    alone.sort();
    EXPECT_EQ(alone.shells(),
              (Sections{{"Z", 1, 3, {{0, 1, 2}}}, {"Surface_Shell", 1, 4, {{4, 5, 6, 7}}}}));
}

TEST(NormaliseSurfaces, SectionStandsInTheLogButNotAmongTheLoads) {
    Deck deck(kMesh + "*ELSET, ELSET=A\n1, 4\n" + kSurface + "A, S2\n");
    deck.sort();
    EXPECT_EQ(deck.logBlock("Shell Element Data"),
              "------- Shell Element Section 0 --------\n"
              "Type = S4, Elset = Surface_Shell, Element Node Num = 4\n"
              "New ID = 0 , Old ID = 0 , 4 5 6 7\n"
              "New ID = 1 , Old ID = 1 , 12 13 15 15\n");
    EXPECT_EQ(deck.logBlock("Dload Data"), "Face Elem Num = 0\n");
}

TEST(NormaliseSurfaces, StagePrintsNothing) {
    Deck deck(nodeBlock(4) + "*ELEMENT, TYPE=S4, ELSET=A\n1, 1, 2, 3, 4\n*ELSET, ELSET=E\n1\n" +
              kSurface + "E, S2\nE, SPOS\nNONE, S1\n");
    deck.sort();
    EXPECT_EQ(deck.printed, "elem sec num = 1\nsec 0 , geom type = 1\n" + deck.logLine());
}

TEST(NormaliseSurfaces, FaceNodeWithoutARowBecomesRowZero) {
    EXPECT_EQ(surfaceFaces("*NODE\n9, 0., 0., 0.\n2, 0., 0., 0.\n"
                           "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 2, 5, -4, 10\n"
                           "*ELSET, ELSET=E\n1\n" +
                           kSurface + "E, S2\n"),
              surfaceShell({{1, 0, 0, 0}}));
}

TEST(NormaliseSurfaces, ElementThatTheSplitDropsStillHasItsFace) {
    Deck deck(nodeBlock(5) +
              "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n2, 2, 3, 4, 5\n"
              "*ELSET, ELSET=P, GENERATE\n1, 1, 1\n*ELSET, ELSET=E\n2\n" +
              kSurface + "E, S2\n");
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"P", 2, 4, {{0, 1, 2, 3}}}}));
    EXPECT_EQ(deck.shells(), surfaceShell({{1, 2, 4, 4}}));
}

}  // namespace
}  // namespace kvocaeio::test
