/// Sets, surfaces, loads and shell sections.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "tidy/tidied.h"

namespace kvocaeio::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

// Two tetrahedra that share the face 1 2 3, and a shell.
constexpr std::string_view kMesh =
    "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n4, 0, 0, 1\n5, 0, 0, -1\n"
    "*ELEMENT, TYPE=C3D4, ELSET=BODY\n1, 1, 2, 3, 4\n2, 1, 3, 2, 5\n"
    "*ELEMENT, TYPE=S3, ELSET=SKIN\n3, 1, 2, 3\n";

Tidied tidiedFaces(std::string_view deck) {
    return tidyText(std::string(kMesh) + std::string(deck), CKVODeckTidy::kAbaqus);
}

// What comes after the mesh.
std::string restOf(const Tidied& deck) {
    const std::string head = "** Tidy deck\n" + std::string(kMesh);
    return deck.text.starts_with(head) ? deck.text.substr(head.size()) : "no mesh: " + deck.text;
}

TEST(TidyAbaqusFaces, SurfacesOfListedSetsAndLoadsOfElementsNeedNothing) {
    const Tidied deck = tidiedFaces(
        "*ELSET, ELSET=TOP\n1, 2\n*SURFACE, TYPE=ELEMENT, NAME=S\nTOP, S2\n*DLOAD\n1, P1, 2.5\n"
        "*SHELL SECTION, ELSET=SKIN, MATERIAL=M\n0.5\n");
    EXPECT_TRUE(deck.isDone);
    EXPECT_FALSE(deck.isNeeded);
    EXPECT_THAT(deck.others, IsEmpty());
}

TEST(TidyAbaqusFaces, GeneratedAndNestedSetsAreWrittenAsMembers) {
    const Tidied deck = tidiedFaces(
        "*ELSET, ELSET=A, GENERATE\n1, 9\n*ELSET, ELSET=B\nA, 3\n*SURFACE, TYPE=ELEMENT, NAME=S\n"
        "A, S2\n");
    EXPECT_EQ(restOf(deck),
              "*ELSET, ELSET=A\n1, 2, 3\n*ELSET, ELSET=B\n1, 2, 3\n*ELSET, ELSET=_S_S2\n1, 2\n"
              "*SURFACE, TYPE=ELEMENT, NAME=S\n_S_S2, S2\n");
    EXPECT_THAT(deck.notes, ElementsAre("tidy.abaqus-surface-item", "tidy.abaqus-set-generated"));
    EXPECT_THAT(deck.others, ElementsAre("17:1 tidy.abaqus-face-missing"));
}

TEST(TidyAbaqusFaces, RangesHaveStepsAndSeveralLines) {
    const Tidied deck = tidyText(
        "*ELEMENT, TYPE=C3D4\n1,1,2,3,4\n2,1,2,3,4\n3,1,2,3,4\n4,1,2,3,4\n5,1,2,3,4\n6,1,2,3,4\n"
        "*ELSET, ELSET=A, GENERATE\n1, 5, 2\n6\n*ELSET, ELSET=B, GEN\n2, 4\n"
        "*ELSET, GENERATE, ELSET=C\n3, 3, 0\n*ELSET, ELSET=D, GENERATE\n1, 6, 4\n",
        CKVODeckTidy::kAbaqus);
    EXPECT_EQ(deck.text.substr(deck.text.find("*ELSET")),
              "*ELSET, ELSET=A\n1, 3, 5, 6\n*ELSET, ELSET=B\n2, 3, 4\n*ELSET, ELSET=C\n3\n"
              "*ELSET, ELSET=D\n1, 5\n");
}

TEST(TidyAbaqusFaces, GeneratedSetsAreChangedWhereTheyWouldSplitALoneSection) {
    EXPECT_TRUE(tidiedFaces("*ELSET, ELSET=A, GENERATE\n1, 1\n").isNeeded);
    EXPECT_FALSE(tidiedFaces("*ELEMENT, TYPE=C3D4, ELSET=MORE\n4, 1, 2, 3, 4\n"
                             "*ELEMENT, TYPE=S3, ELSET=RIM\n5, 1, 2, 3\n"
                             "*ELSET, ELSET=A, GENERATE\n1, 1\n")
                     .isNeeded);
}

TEST(TidyAbaqusFaces, SetsThatAreInternalRepeatedOrOfABlockReachTheSurface) {
    const Tidied deck = tidiedFaces(
        "*ELSET, ELSET=A, INTERNAL\n1\n*ELSET, ELSET=B\n1\n*ELSET, ELSET=B\n2\n"
        "*SURFACE, TYPE=ELEMENT, NAME=S\nA, S1\nB, S2\nBODY, S3\n");
    EXPECT_EQ(restOf(deck),
              "*ELSET, ELSET=A\n1\n*ELSET, ELSET=B\n1, 2\n*ELSET, ELSET=BODY\n1, 2\n"
              "*SURFACE, TYPE=ELEMENT, NAME=S\nA, S1\nB, S2\nBODY, S3\n");
    EXPECT_THAT(deck.notes, ElementsAre("tidy.abaqus-set-internal", "tidy.abaqus-set-of-block",
                                        "tidy.abaqus-set-repeated"));
}

TEST(TidyAbaqusFaces, SurfacesWithoutATypeOrOfElements) {
    const Tidied deck = tidiedFaces("*SURFACE, NAME=S\n1, S1\n2, s1\n1, S4\n");
    EXPECT_EQ(restOf(deck),
              "*ELSET, ELSET=_S_S1\n1, 2\n*ELSET, ELSET=_S_S4\n1\n"
              "*SURFACE, TYPE=ELEMENT, NAME=S\n_S_S1, S1\n_S_S4, S4\n");
}

TEST(TidyAbaqusFaces, SurfacesOfNodesAreLeftOutAndReadingGoesOn) {
    const Tidied deck = tidiedFaces("*SURFACE, NAME=S, TYPE=NODE\n1\n*DLOAD\n1, P1, 1\n");
    EXPECT_EQ(restOf(deck), "*DLOAD\n1, P1, 1\n");
    EXPECT_THAT(deck.others, ElementsAre("12:1 tidy.abaqus-surface-unread"));
}

TEST(TidyAbaqusFaces, ASetWithoutAFaceMeansTheOutside) {
    const Tidied deck = tidiedFaces("*SURFACE, TYPE=ELEMENT, NAME=S\nBODY,\n");
    EXPECT_EQ(restOf(deck),
              "*ELSET, ELSET=_S_S2\n1, 2\n*ELSET, ELSET=_S_S3\n1, 2\n*ELSET, ELSET=_S_S4\n1, 2\n"
              "*SURFACE, TYPE=ELEMENT, NAME=S\n_S_S2, S2\n_S_S3, S3\n_S_S4, S4\n");
}

TEST(TidyAbaqusFaces, AFaceIsInASurfaceOnce) {
    const Tidied deck = tidiedFaces(
        "*ELSET, ELSET=A\n1\n*ELSET, ELSET=B\n1, 2\n*SURFACE, TYPE=ELEMENT, NAME=S\nA, S2\n"
        "B, S2\nA, S3\n1, S1\n1, S1\n");
    EXPECT_EQ(restOf(deck).substr(restOf(deck).find("*ELSET, ELSET=_")),
              "*ELSET, ELSET=_S_S1\n1\n*ELSET, ELSET=_S_S2\n1, 2\n"
              "*SURFACE, TYPE=ELEMENT, NAME=S\nA, S3\n_S_S1, S1\n_S_S2, S2\n");
    EXPECT_THAT(deck.notes, Contains("tidy.abaqus-surface-repeated"));
}

TEST(TidyAbaqusFaces, CombinedSurfaces) {
    const std::string parts =
        "*SURFACE, TYPE=ELEMENT, NAME=A\n1, S1\n1, S2\n*SURFACE, TYPE=ELEMENT, NAME=B\n1, S2\n"
        "2, S2\n";
    const std::string written =
        "*ELSET, ELSET=_A_S1\n1\n*ELSET, ELSET=_A_S2\n1\n*SURFACE, TYPE=ELEMENT, NAME=A\n"
        "_A_S1, S1\n_A_S2, S2\n*ELSET, ELSET=_B_S2\n1, 2\n*SURFACE, TYPE=ELEMENT, NAME=B\n"
        "_B_S2, S2\n";
    EXPECT_EQ(restOf(tidiedFaces(parts + "*SURFACE, NAME=C, COMBINE=UNION\nA, B\n")),
              written +
                  "*ELSET, ELSET=_C_S1\n1\n*ELSET, ELSET=_C_S2\n1, 2\n"
                  "*SURFACE, TYPE=ELEMENT, NAME=C\n_C_S1, S1\n_C_S2, S2\n");
    EXPECT_EQ(restOf(tidiedFaces(parts + "*SURFACE, NAME=C, COMBINE=INTERSECTION\nA, B\n")),
              written + "*ELSET, ELSET=_C_S2\n1\n*SURFACE, TYPE=ELEMENT, NAME=C\n_C_S2, S2\n");
    EXPECT_EQ(restOf(tidiedFaces(parts + "*SURFACE, NAME=C, COMBINE=DIFFERENCE\nA, B\n")),
              written + "*ELSET, ELSET=_C_S1\n1\n*SURFACE, TYPE=ELEMENT, NAME=C\n_C_S1, S1\n");
}

TEST(TidyAbaqusFaces, LoadsOnSetsAreWrittenOneByOne) {
    const Tidied deck =
        tidiedFaces("*STEP\n*DLOAD, OP=NEW\nBODY, P2, 1.5\n3, P, 1\nBODY, GRAV, 9.8\n");
    EXPECT_EQ(restOf(deck), "*DLOAD\n1, P2, 1.5\n2, P2, 1.5\n");
    EXPECT_THAT(deck.notes, ElementsAre("tidy.abaqus-keyword-unread", "tidy.abaqus-load-unread",
                                        "tidy.abaqus-load-unread", "tidy.abaqus-load-on-set"));
}

TEST(TidyAbaqusFaces, LoadsOnSurfacesAreWrittenFaceByFace) {
    const Tidied deck = tidiedFaces(
        "*SURFACE, NAME=S\n1, S2\n2, S3\n*STEP\n*DSLOAD\ns, P, 1.5\nS, TRVEC, 1., 0, 0, 1\n"
        "T, P, 1.\n*DSLOAD, OP=NEW\n\"S\", p, -2.D0\n");
    EXPECT_EQ(restOf(deck).substr(restOf(deck).find("*DLOAD")),
              "*DLOAD\n1, P2, 1.5\n2, P3, 1.5\n1, P2, -2\n2, P3, -2\n");
    EXPECT_THAT(deck.others, ElementsAre("19:1 tidy.abaqus-surface-missing"));
}

TEST(TidyAbaqusFaces, FacesOfShellsAreToldAndLeftOut) {
    const Tidied deck = tidiedFaces(
        "*ELSET, ELSET=A\nSKIN\n*SURFACE, TYPE=ELEMENT, NAME=S\nA, SPOS\nA, S1\n*DLOAD\n"
        "3, P1, 1\n4, P1, 1\n");
    EXPECT_EQ(restOf(deck), "*ELSET, ELSET=A\n3\n");
    EXPECT_THAT(deck.others,
                ElementsAre("15:4 tidy.abaqus-face-unread", "16:1 tidy.abaqus-face-missing",
                            "18:1 tidy.abaqus-face-missing", "19:1 tidy.abaqus-set-missing"));
}

TEST(TidyAbaqusFaces, ShellSectionsHaveTheirMaterialAndOneThickness) {
    const Tidied deck = tidiedFaces(
        "*SHELL SECTION, ELSET=SKIN, COMPOSITE\n0.5, 3, A\n0.25, 3, B\n"
        "*SHELL GENERAL SECTION, ELSET=SKIN, MATERIAL=M\n2.\n"
        "*SHELLSECTION, ELSET=SKIN, MATERIAL=M\n3., 5\n1, 2\n");
    EXPECT_EQ(restOf(deck),
              "*SHELL SECTION, ELSET=SKIN, MATERIAL=NONE\n0.75\n"
              "*SHELL SECTION, ELSET=SKIN, MATERIAL=M\n2\n"
              "*SHELL SECTION, ELSET=SKIN, MATERIAL=M\n3\n");
}

TEST(TidyAbaqusFaces, NamesAreKeptApartAndTakeTheReadersCharacters) {
    const Tidied deck = tidyText(
        "*ELEMENT, TYPE=C3D4, ELSET=\"a, b\"\n1, 1, 2, 3, 4\n"
        "*ELEMENT, TYPE=C3D4, ELSET=A_ B\n2, 1, 2, 3, 4\n*SURFACE, NAME=S\n\"a, b\", S1\nA_ B, "
        "S1\n",
        CKVODeckTidy::kAbaqus);
    EXPECT_EQ(deck.text,
              "** Tidy deck\n*NODE\n*ELEMENT, TYPE=C3D4, ELSET=A_ B-2\n1, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=C3D4, ELSET=A_ B\n2, 1, 2, 3, 4\n*ELSET, ELSET=A__B\n2\n"
              "*ELSET, ELSET=A__B-2\n1\n*SURFACE, TYPE=ELEMENT, NAME=S\nA__B-2, S1\nA__B, S1\n");
    EXPECT_THAT(deck.notes, Contains("tidy.abaqus-name-changed"));
}

TEST(TidyAbaqusFaces, NamesOfMoreCharactersThanTheReaderHoldsGiveWayToOthers) {
    const std::string name(79, 'N');
    const Tidied deck = tidyText("*ELEMENT, TYPE=C3D4, ELSET=" + name + "X\n1, 1, 2, 3, 4\n" +
                                     "*ELEMENT, TYPE=C3D4, ELSET=" + name + "\n2, 1, 2, 3, 4\n",
                                 CKVODeckTidy::kAbaqus);
    EXPECT_EQ(deck.text, "** Tidy deck\n*NODE\n*ELEMENT, TYPE=C3D4, ELSET=" + std::string(77, 'N') +
                             "-2\n1, 1, 2, 3, 4\n" + "*ELEMENT, TYPE=C3D4, ELSET=" + name +
                             "\n2, 1, 2, 3, 4\n");
}

TEST(TidyAbaqusFaces, NamesThatAreNumbersAreNoElements) {
    const Tidied deck = tidiedFaces("*ELSET, ELSET=\"1\"\n2\n*SURFACE, NAME=S\n\"1\", S1\n");
    EXPECT_EQ(restOf(deck), "*ELSET, ELSET=_1\n2\n*SURFACE, TYPE=ELEMENT, NAME=S\n_1, S1\n");
}

TEST(TidyAbaqusFaces, SurfacesOfInstancesAreFoundFromTheAssembly) {
    const Tidied deck = tidyText(
        "*PART, NAME=P\n*NODE\n1\n*ELEMENT, TYPE=C3D4\n1, 1, 1, 1, 1\n*SURFACE, NAME=S\n1, S1\n"
        "*END PART\n*ASSEMBLY, NAME=ALL\n*INSTANCE, NAME=I, PART=P\n*END INSTANCE\n"
        "*INSTANCE, NAME=J, PART=P\n*END INSTANCE\n*SURFACE, NAME=B, COMBINE=UNION\nI.S, T\n"
        "*SURFACE, NAME=T\nJ.1, S2\n*END ASSEMBLY\n*DSLOAD\nI.S, P, 1\nALL.J.S, P, 2\nALL.T, P, 3\n"
        "*DLOAD\n, P1, 4\n",
        CKVODeckTidy::kAbaqus);
    EXPECT_EQ(deck.text.substr(deck.text.find("*ELSET")),
              "*ELSET, ELSET=_I.S_S1\n1\n*SURFACE, TYPE=ELEMENT, NAME=I.S\n_I.S_S1, S1\n"
              "*ELSET, ELSET=_J.S_S1\n2\n*SURFACE, TYPE=ELEMENT, NAME=J.S\n_J.S_S1, S1\n"
              "*ELSET, ELSET=_T_S2\n2\n*SURFACE, TYPE=ELEMENT, NAME=T\n_T_S2, S2\n"
              "*ELSET, ELSET=_B_S1\n1\n*ELSET, ELSET=_B_S2\n2\n*SURFACE, TYPE=ELEMENT, NAME=B\n"
              "_B_S1, S1\n_B_S2, S2\n*DLOAD\n1, P1, 1\n2, P1, 2\n2, P2, 3\n");
    EXPECT_THAT(deck.others, IsEmpty());
}

TEST(TidyAbaqusFaces, PartsOfANameMayBeQuoted) {
    const Tidied deck = tidyText(
        "*PART, NAME=\"Part 1\"\n*NODE\n1\n*ELEMENT, TYPE=C3D4\n1, 1, 1, 1, 1\n"
        "*ELSET, ELSET=\"Set 1\"\n1\n*END PART\n*ASSEMBLY, NAME=A\n"
        "*INSTANCE, NAME=\"Part 1-1\", PART=\"Part 1\"\n*END INSTANCE\n"
        "*SURFACE, TYPE=ELEMENT, NAME=S\n\"Part 1-1\".\"Set 1\", S1\n*END ASSEMBLY\n"
        "*DLOAD\n\"Part 1-1.Set 1\", P2, 3.\n\"Part 1-1\".1, P3, 3.\n",
        CKVODeckTidy::kAbaqus);
    EXPECT_EQ(deck.text,
              "** Tidy deck\n*NODE\n1, 0, 0, 0\n*ELEMENT, TYPE=C3D4\n1, 1, 1, 1, 1\n"
              "*ELSET, ELSET=SET_1\n1\n*SURFACE, TYPE=ELEMENT, NAME=S\nSET_1, S1\n"
              "*DLOAD\n1, P2, 3\n1, P3, 3\n");
    EXPECT_THAT(deck.others, IsEmpty());
}

TEST(TidyAbaqusFaces, SetsOfSetsOfSeveralInstancesAndSteps) {
    const Tidied deck = tidyText(
        "*PART, NAME=P\n*NODE\n1\n*ELEMENT, TYPE=C3D4\n1, 1, 1, 1, 1\n2, 1, 1, 1, 1\n"
        "3, 1, 1, 1, 1\n4, 1, 1, 1, 1\n*ELSET, ELSET=ODD, GENERATE\n1, 4, 2\n*END PART\n"
        "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I, PART=P\n*END INSTANCE\n"
        "*INSTANCE, NAME=J, PART=P\n*END INSTANCE\n"
        "*ELSET, ELSET=BOTH, INSTANCE=I, INTERNAL\n4,\n*ELSET, ELSET=BOTH, INSTANCE=J\n2,\n"
        "*ELSET, ELSET=ALL\nBOTH, I.ODD, j.odd\n*SURFACE, NAME=S\nALL, S4\n*END ASSEMBLY\n"
        "*STEP\n*DLOAD\nBOTH, P1, 1\n*END STEP\n*STEP\n*DSLOAD\nS, P, 2\n*END STEP\n",
        CKVODeckTidy::kAbaqus);
    EXPECT_EQ(deck.text.substr(deck.text.find("*ELSET")),
              "*ELSET, ELSET=I.ODD\n1, 3\n*ELSET, ELSET=J.ODD\n5, 7\n"
              "*ELSET, ELSET=ALL\n1, 3, 4, 5, 6, 7\n*ELSET, ELSET=BOTH\n4, 6\n"
              "*SURFACE, TYPE=ELEMENT, NAME=S\nALL, S4\n*DLOAD\n4, P1, 1\n6, P1, 1\n"
              "1, P4, 2\n3, P4, 2\n4, P4, 2\n5, P4, 2\n6, P4, 2\n7, P4, 2\n");
}

TEST(TidyAbaqusFaces, SetsOfInstancesAreFoundFromTheAssembly) {
    const Tidied deck = tidyText(
        "*PART, NAME=P\n*NODE\n1\n2\n3\n4\n*ELEMENT, TYPE=C3D4, ELSET=E\n1, 1, 2, 3, 4\n"
        "*ELSET, ELSET=A\n1\n*SURFACE, TYPE=ELEMENT, NAME=S\nA, S1\n*END PART\n"
        "*ASSEMBLY, NAME=ALL\n*INSTANCE, NAME=I, PART=P\n*END INSTANCE\n"
        "*INSTANCE, NAME=J, PART=P\n*END INSTANCE\n*ELSET, ELSET=B, INSTANCE=J\n1\n"
        "*ELSET, ELSET=C\nI.A, B\n*SURFACE, TYPE=ELEMENT, NAME=T\nC, S2\nJ.1, S3\nI.A, S4\n"
        "*SURFACE, NAME=U, COMBINE=UNION\nI.S, J.S\n*END ASSEMBLY\n*STEP\n*DLOAD\nALL.B, P1, 1\n"
        "I.1, P2, 2\n",
        CKVODeckTidy::kAbaqus);
    EXPECT_TRUE(deck.isDone);
    EXPECT_EQ(deck.text.substr(deck.text.find("*ELSET")),
              "*ELSET, ELSET=I.A\n1\n*ELSET, ELSET=J.A\n2\n*ELSET, ELSET=B\n2\n"
              "*ELSET, ELSET=C\n1, 2\n*SURFACE, TYPE=ELEMENT, NAME=I.S\nI.A, S1\n"
              "*SURFACE, TYPE=ELEMENT, NAME=J.S\nJ.A, S1\n*ELSET, ELSET=_T_S3\n2\n"
              "*SURFACE, TYPE=ELEMENT, NAME=T\nC, S2\nI.A, S4\n_T_S3, S3\n"
              "*ELSET, ELSET=_U_S1\n1, 2\n*SURFACE, TYPE=ELEMENT, NAME=U\n_U_S1, S1\n"
              "*DLOAD\n2, P1, 1\n1, P2, 2\n");
}

}  // namespace
}  // namespace kvocaeio::test
