/// Parts, instances, coordinate systems, and meshes that statements generate.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "tidy/tidied.h"

namespace kvocaeio::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

Tidied tidiedMesh(std::string_view deck) {
    return tidyText(deck, CKVODeckTidy::kAbaqus);
}

TEST(TidyAbaqusMesh, EachInstanceIsPlacedWithNumbersOfItsOwn) {
    const Tidied deck = tidiedMesh(
        "*PART, NAME=P\n*NODE\n1, 1, 0, 0\n2, 2, 0, 0\n3, 0, 1, 0\n"
        "*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 2, 3\n*END PART\n"
        "*ASSEMBLY, NAME=ALL\n"
        "*INSTANCE, NAME=LEFT, PART=P\n*END INSTANCE\n"
        "*INSTANCE, NAME=RIGHT, PART=P\n10, 0, 0\n0, 0, 0, 0, 0, 1, 90\n*END INSTANCE\n"
        "*NODE\n1, 7, 7, 7\n*END ASSEMBLY\n");
    EXPECT_TRUE(deck.isDone);
    EXPECT_EQ(deck.text,
              "** Tidy deck\n*NODE\n1, 1, 0, 0\n2, 2, 0, 0\n3, 0, 1, 0\n"
              "4, 0, 11, 0\n5, 0, 12, 0\n6, -1, 10, 0\n7, 7, 7, 7\n"
              "*ELEMENT, TYPE=S3, ELSET=LEFT.A\n1, 1, 2, 3\n"
              "*ELEMENT, TYPE=S3, ELSET=RIGHT.A\n2, 4, 5, 6\n");
    EXPECT_EQ(deck.nodeOrigins, "1<1 2<2 3<3 4<1 5<2 6<3 7<1");
    EXPECT_EQ(deck.elementOrigins, "1<1 2<1");
}

// The nodes of a part of (1, 0, 0) and (0, 2, 0), placed by some lines.
std::string placedNodes(const std::string& lines) {
    const Tidied deck = tidiedMesh(
        "*PART, NAME=P\n*NODE\n1, 1, 0, 0\n2, 0, 2, 0\n*END PART\n*ASSEMBLY, NAME=A\n"
        "*INSTANCE, NAME=I, PART=P\n" +
        lines + "*END INSTANCE\n*END ASSEMBLY\n");
    const std::string head = "** Tidy deck\n*NODE\n";
    return deck.text.starts_with(head) ? deck.text.substr(head.size()) : deck.text;
}

TEST(TidyAbaqusMesh, AnInstanceIsMovedAndThenTurnedAboutTheAxisThroughTwoPoints) {
    EXPECT_EQ(placedNodes(""), "1, 1, 0, 0\n2, 0, 2, 0\n");
    EXPECT_EQ(placedNodes("10., 0., 3.\n"), "1, 11, 0, 3\n2, 10, 2, 3\n");
    // About the line x = 10, y = 0: (11, 0, 3) to (10, 1, 3), (10, 2, 3) to (8, 0, 3).
    EXPECT_EQ(placedNodes("10., 0., 3.\n10., 0., 0., 10., 0., 1., 90.\n"),
              "1, 10, 1, 3\n2, 8, 0, 3\n");
    // The other way round with the points in the other order.
    EXPECT_EQ(placedNodes("10., 0., 3.\n10., 0., 1., 10., 0., 0., 90.\n"),
              "1, 10, -1, 3\n2, 12, 0, 3\n");
    // A half turn about a line in no plane of the axes: x and y change places, z its sign.
    EXPECT_EQ(placedNodes("0., 0., 0.\n0., 0., 0., 5., 5., 0., 180.\n"),
              "1, 0, 1, 0\n2, 2, 0, 0\n");
    EXPECT_EQ(placedNodes("0., 0., 0., 0., 0., 1., 180.\n"), "1, -1, 0, 0\n2, 0, -2, 0\n");
}

TEST(TidyAbaqusMesh, AnInstanceMayHoldTheMeshItself) {
    const Tidied deck = tidiedMesh(
        "*PART, NAME=P\n*END PART\n*ASSEMBLY, NAME=ALL\n*INSTANCE, NAME=I, PART=P\n5, 0, 0\n"
        "*NODE\n1, 1, 0, 0\n*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 1, 1\n*END INSTANCE\n"
        "*END ASSEMBLY\n");
    EXPECT_EQ(deck.text,
              "** Tidy deck\n*NODE\n1, 6, 0, 0\n*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 1, 1\n");
}

TEST(TidyAbaqusMesh, WhatIsImportedIsToldAndNotThere) {
    const Tidied deck = tidiedMesh("*NODE\n\n1\n*IMPORT, STEP=2\nPART-1,\n");
    EXPECT_EQ(deck.text, "** Tidy deck\n*NODE\n1, 0, 0, 0\n");
    EXPECT_THAT(deck.others, ElementsAre("4:1 tidy.abaqus-mesh-elsewhere"));
}

TEST(TidyAbaqusMesh, ElementsWithMoreNodesThanTheirTypeAreReadToTheirEnd) {
    const Tidied deck = tidiedMesh(
        "*ELEMENT, TYPE=C3D6\n1, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16,\n17, 18\n"
        "2, 1, 2, 3, 4, 5, 7\n");
    EXPECT_TRUE(deck.isDone);
    EXPECT_EQ(
        deck.text,
        "** Tidy deck\n*NODE\n*ELEMENT, TYPE=C3D6\n1, 1, 2, 3, 4, 5, 6\n2, 1, 2, 3, 4, 5, 7\n");
    EXPECT_THAT(deck.notes, ElementsAre("tidy.abaqus-element-long"));
    // One line with numbers of something else ends there.
    EXPECT_FALSE(
        tidiedMesh("*ELEMENT, TYPE=C3D4\n1, 1, 2, 3, 4, 5, 6,\n2, 1, 2, 3, 4, 5, 7,\n").isNeeded);
}

TEST(TidyAbaqusMesh, PartsWithoutInstancesAreTakenAsTheyAre) {
    const Tidied deck = tidiedMesh("*PART, NAME=P\n*NODE\n1, 1, 0, 0\n*END PART\n");
    EXPECT_EQ(deck.text, "** Tidy deck\n*NODE\n1, 1, 0, 0\n");
    EXPECT_THAT(deck.notes, ElementsAre("tidy.abaqus-part-placed"));
}

TEST(TidyAbaqusMesh, AnInstanceOfNoPartIsAnError) {
    const Tidied deck = tidiedMesh("*ASSEMBLY\n*INSTANCE, NAME=I, PART=P\n*END INSTANCE\n");
    EXPECT_FALSE(deck.isDone);
    EXPECT_THAT(deck.others, ElementsAre("2:1 tidy.abaqus-part-missing"));
}

TEST(TidyAbaqusMesh, CoordinatesOfSystemsBecomeGlobal) {
    const Tidied deck = tidiedMesh(
        "*NODE, SYSTEM=C\n1, 2, 90, 3\n*NODE, SYSTEM=S\n2, 2, 0, 90\n"
        "*SYSTEM\n10, 0, 0, 10, 1, 0\n9, 0, 0\n*NODE\n3, 1, 2, 3\n*SYSTEM\n*NODE\n4, 1, 2, 3\n");
    EXPECT_EQ(deck.text, "** Tidy deck\n*NODE\n1, 0, 2, 3\n2, 0, 0, 2\n3, 8, 1, 3\n4, 1, 2, 3\n");
}

TEST(TidyAbaqusMesh, ASystemHasOneTwoOrThreePoints) {
    const auto nodesOf = [](const std::string& system) {
        const Tidied deck = tidiedMesh("*SYSTEM\n" + system + "*NODE\n1, 1, 2, 3\n");
        return deck.text.substr(deck.text.find("\n1, ") + 1);
    };
    EXPECT_EQ(nodesOf("10, 20, 30\n"), "1, 11, 22, 33\n");
    // x along the global y, y along the global -x.
    EXPECT_EQ(nodesOf("10, 20, 30, 10, 25, 30\n"), "1, 8, 21, 33\n");
    // x along the global z, y along the global x, so z along the global y.
    EXPECT_EQ(nodesOf("10, 20, 30, 10, 20, 31\n15, 20, 40\n"), "1, 12, 23, 31\n");
    EXPECT_EQ(nodesOf("10, 20, 30\n*SYSTEM\n"), "1, 1, 2, 3\n");
}

TEST(TidyAbaqusMesh, CylindricalCoordinatesOfALocalSystem) {
    const Tidied deck = tidiedMesh("*SYSTEM\n10, 0, 0, 10, 1, 0\n*NODE, SYSTEM=C\n1, 2, 90, 5\n");
    EXPECT_EQ(deck.text, "** Tidy deck\n*NODE\n1, 8, 0, 5\n");
}

TEST(TidyAbaqusMesh, ASystemOfAPartEndsWithIt) {
    const Tidied deck = tidiedMesh(
        "*PART, NAME=P\n*SYSTEM\n5, 0, 0\n*NODE\n1, 1, 0, 0\n*END PART\n*ASSEMBLY, NAME=A\n"
        "*INSTANCE, NAME=I, PART=P\n*END INSTANCE\n*NODE\n9, 1, 0, 0\n*END ASSEMBLY\n");
    EXPECT_EQ(deck.text, "** Tidy deck\n*NODE\n1, 6, 0, 0\n9, 1, 0, 0\n");
}

TEST(TidyAbaqusMesh, NodesOfALineAnArcAndAParabola) {
    const Tidied deck = tidiedMesh(
        "*NODE\n1, 0, 0, 0\n5, 4, 0, 0\n11, 1, 0, 0\n13, 0, 1, 0\n21, 0, 0, 0\n25, 2, 0, 0\n"
        "30, 1, 1, 0\n*NGEN\n1, 5, 2\n*NGEN, LINE=C\n11, 13, 1, , 0, 0, 0\n"
        "*NGEN, LINE=P\n21, 25, 2, 30\n");
    EXPECT_EQ(deck.text,
              "** Tidy deck\n*NODE\n1, 0, 0, 0\n5, 4, 0, 0\n11, 1, 0, 0\n13, 0, 1, 0\n"
              "21, 0, 0, 0\n25, 2, 0, 0\n30, 1, 1, 0\n3, 2, 0, 0\n"
              "12, 0.7071067811865476, 0.7071067811865475, 0\n23, 1, 1, 0\n");
}

TEST(TidyAbaqusMesh, NodesBetweenTwoSetsAndCopiesOfASet) {
    const Tidied deck = tidiedMesh(
        "*NODE, NSET=A\n1, 0, 0, 0\n2, 0, 1, 0\n*NODE, NSET=B\n21, 4, 0, 0\n22, 4, 1, 0\n"
        "*NFILL\nA, B, 2, 10\n*NCOPY, OLD SET=B, CHANGE NUMBER=100, SHIFT, NEW SET=C\n"
        "1, 0, 0\n0, 0, 0, 0, 0, 1, 180\n"
        "*NCOPY, OLD SET=C, CHANGE NUMBER=100, REFLECT=POINT\n0, 0, 0\n");
    EXPECT_EQ(deck.text,
              "** Tidy deck\n*NODE\n1, 0, 0, 0\n2, 0, 1, 0\n21, 4, 0, 0\n22, 4, 1, 0\n"
              "11, 2, 0, 0\n12, 2, 1, 0\n121, -5, 0, 0\n122, -5, -1, 0\n221, 5, 0, 0\n"
              "222, 5, 1, 0\n");
}

TEST(TidyAbaqusMesh, FillingCloserToTheFirstSet) {
    const Tidied deck = tidiedMesh(
        "*NODE, NSET=A\n1, 0, 0, 0\n*NODE, NSET=B\n4, 7, 0, 0\n*NFILL, BIAS=0.5\nA, B, 3, 1\n");
    EXPECT_EQ(deck.text, "** Tidy deck\n*NODE\n1, 0, 0, 0\n4, 7, 0, 0\n2, 1, 0, 0\n3, 3, 0, 0\n");
}

TEST(TidyAbaqusMesh, RowsOfElementsAndReflectedCopies) {
    const Tidied deck = tidiedMesh(
        "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 11, 101\n*ELGEN, ELSET=A\n"
        "1, 2, 1, 1, 2, 10, 10\n*ELCOPY, OLD SET=A, ELEMENT SHIFT=100, SHIFT NODES=1000, "
        "REFLECT\n");
    EXPECT_EQ(deck.text,
              "** Tidy deck\n*NODE\n*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 11, 101\n"
              "2, 2, 3, 12, 102\n11, 11, 12, 21, 111\n12, 12, 13, 22, 112\n"
              "*ELEMENT, TYPE=C3D4\n101, 1001, 1011, 1002, 1101\n102, 1002, 1012, 1003, 1102\n"
              "111, 1011, 1021, 1012, 1111\n112, 1012, 1022, 1013, 1112\n");
}

TEST(TidyAbaqusMesh, GenerationFromWhatIsNotThereIsAnError) {
    EXPECT_THAT(tidiedMesh("*NGEN\n1, 5\n").others,
                ElementsAre("2:1 tidy.abaqus-generation-invalid"));
    EXPECT_THAT(tidiedMesh("*NODE, NSET=A\n1, 0\n*NFILL, SINGULAR=3\nA, A, 2, 10\n").others,
                ElementsAre("3:1 tidy.abaqus-statement-unread"));
    EXPECT_THAT(tidiedMesh("*NODE\n1, 0\n*NMAP, NSET=A, TYPE=RECTANGULAR\n").others,
                ElementsAre("3:1 tidy.abaqus-statement-unread"));
}

TEST(TidyAbaqusMesh, MoreThanCanBeWrittenIsAnError) {
    EXPECT_THAT(tidiedMesh("*NODE\n1, 0\n2000000000, 1\n*NGEN\n1, 2000000000, 1\n").others,
                Contains("5:1 tidy.abaqus-too-much"));
    EXPECT_THAT(tidiedMesh("*ELEMENT, TYPE=S3\n1, 1, 1, 1\n*ELGEN\n"
                           "1, 100000, 1, 1, 100000, 1, 100000, 1000, 1, 1\n")
                    .others,
                Contains("4:1 tidy.abaqus-too-much"));
    EXPECT_THAT(tidiedMesh("*PART, NAME=P\n*NODE\n1\n2000000000\n*END PART\n*ASSEMBLY\n"
                           "*INSTANCE, NAME=A, PART=P\n*END INSTANCE\n"
                           "*INSTANCE, NAME=B, PART=P\n*END INSTANCE\n")
                    .others,
                ElementsAre("9:1 tidy.abaqus-too-much"));
}

TEST(TidyAbaqusMesh, OriginsTellInstanceAndFile) {
    const TempFolder folder;
    folder.write("mesh.inc", "*NODE\n5, 1, 0, 0\n");
    const std::string path =
        folder.write("deck",
                     "*PART, NAME=P\n*INCLUDE, INPUT=mesh.inc\n*END PART\n*ASSEMBLY\n"
                     "*INSTANCE, NAME=\"Left one\", PART=P\n*END INSTANCE\n*NODE\n9, 0, 0, 0\n");
    CKVODeckTidy tidy;
    ASSERT_TRUE(tidy.Tidy(path.c_str(), nullptr, CKVODeckTidy::kRecognise, nullptr));
    EXPECT_EQ(tidy.GetFormat(), CKVODeckTidy::kAbaqus);
    CKVODeckTidy::OriginData origin;
    ASSERT_TRUE(tidy.GetNodeOriginBegin() && tidy.GetNodeOriginNext(&origin));
    EXPECT_STREQ(origin.part, "Left one");
    EXPECT_EQ(std::string(origin.file), folder.file("mesh.inc"));
    ASSERT_TRUE(tidy.GetNodeOriginNext(&origin));
    EXPECT_STREQ(origin.part, "");
    EXPECT_EQ(std::string(origin.file), path);
}

}  // namespace
}  // namespace kvocaeio::test
