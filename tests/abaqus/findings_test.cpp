/// What an import and a normalisation tell of a deck: subjects, places and columns.
#include "abaqus/findings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "abaqus/import.h"
#include "abaqus/normalise.h"
#include "support/captured_output.h"
#include "support/files.h"
#include "support/findings.h"

namespace kvocaeio::abaqus {
namespace {

using test::describe;
using testing::ElementsAre;
using testing::IsEmpty;

using Described = std::vector<std::string>;

Described importNotes(std::string_view deck) {
    const test::TempFolder folder;
    const test::CapturedOutput quiet;
    AbaqusModel model;
    text::Findings findings;
    const std::string path = folder.write("deck.inp", deck);
    EXPECT_TRUE(importDeck(model, path.c_str(), {&findings, nullptr}));
    return describe(findings);
}

Described sortNotes(std::string_view deck) {
    const test::TempFolder folder;
    const test::CapturedOutput quiet;
    AbaqusModel model;
    EXPECT_TRUE(importDeck(model, folder.write("deck.inp", deck).c_str()));
    text::Findings findings;
    try {
        SortData(model, {&findings, nullptr});
    } catch (const std::length_error& error) {
        EXPECT_STREQ(error.what(), "vector<T> too long");
    }
    return describe(findings);
}

constexpr const char* kWellFormed =
    "*NODE\n** comment\n1, 0., 0., 0.\n*ELEMENT, TYPE=S3, ELSET=A\n1, 1,\n1, 1\n"
    "*ELSET, ELSET=B\n1\n*SURFACE, TYPE=ELEMENT, NAME=S\nB, SPOS\n"
    "*SHELL SECTION, MATERIAL=M\n1.5,\n";

TEST(AbaqusFindings, NoneInAWellFormedDeck) {
    EXPECT_THAT(importNotes(kWellFormed), IsEmpty());
    EXPECT_THAT(sortNotes(kWellFormed), ElementsAre("abaqus.face-label 0:0 SPOS of B"));
}

TEST(AbaqusFindings, KeywordsByWhatTheyWouldHaveMeant) {
    EXPECT_THAT(
        importNotes("*Heading\ntext\n*Include, input=a.inp\n*Part, name=A\n*Instance, name=B\n"
                    "*NGEN\n*System\n*DsLoad\n*Nodes\n*El Print, elset=A\n*PARTS\n*\n"),
        ElementsAre(
            "abaqus.keyword-passed-over (*HEADING (title)) 1:0 *Heading",
            "abaqus.include (*INCLUDE) 3:0 *Include, input=a.inp",
            "abaqus.part (*PART) 4:0 *Part, name=A",
            "abaqus.part (*INSTANCE) 5:0 *Instance, name=B", "abaqus.generation (*NGEN) 6:0 *NGEN",
            "abaqus.coordinate-system (*SYSTEM) 7:0 *System",
            "abaqus.keyword-lost (*DSLOAD (loads on surfaces)) 8:0 *DsLoad",
            "abaqus.keyword-unknown (*NODES) 9:0 *Nodes",
            "abaqus.keyword-passed-over (*EL PRINT (output)) 10:0 *El Print, elset=A",
            "abaqus.keyword-unknown (*PARTS) 11:0 *PARTS", "abaqus.keyword-unknown (*) 12:0 *"));
}

TEST(AbaqusFindings, WhatHidesKeywords) {
    EXPECT_THAT(importNotes("\xEF\xBB\xBF*Node\n1, 2., 3., 4.\n"),
                ElementsAre("abaqus.keyword-hidden (*NODE) 1:0 \xEF\xBB\xBF*Node"));
    EXPECT_THAT(importNotes("\xEF\xBB\xBF*INCLUDE\n"),
                ElementsAre("abaqus.byte-order-mark 1:0 \xEF\xBB\xBF*INCLUDE",
                            "abaqus.include (*INCLUDE) 1:0 \xEF\xBB\xBF*INCLUDE"));
    EXPECT_THAT(importNotes(std::string_view("\xFF\xFE*\0N\0", 6)),
                ElementsAre("abaqus.encoding 1:1 "));
    EXPECT_THAT(importNotes("*HEADING\n *Node, NSET=A\n1, 2., 3., 4.\n"),
                ElementsAre("abaqus.keyword-passed-over (*HEADING (title)) 1:0 *HEADING",
                            "abaqus.keyword-indented (*NODE) 2:2 *"));
    EXPECT_THAT(importNotes("1, 2\n\n3, 4\n*NODE\n"),
                ElementsAre("abaqus.line-outside 1:0 1, 2", "abaqus.line-outside 3:0 3, 4"));
}

TEST(AbaqusFindings, IndentedKeywordsInEachBlock) {
    constexpr const char* kBlocks[] = {"*NODE\n",
                                       "*ELEMENT, TYPE=S3\n",
                                       "*ELSET, ELSET=A\n",
                                       "*ELSET, ELSET=A, GENERATE\n",
                                       "*SURFACE, TYPE=ELEMENT\n",
                                       "*DLOAD\n",
                                       "*SHELL SECTION, MATERIAL=M\n"};
    for (const char* block : kBlocks)
        EXPECT_THAT(importNotes(std::string(block) + "  *Elset, ELSET=B\n1, 1, 1, 1\n").front(),
                    "abaqus.keyword-indented (*ELSET) 2:3 *")
            << block;
}

TEST(AbaqusFindings, ParametersAsTheyStandInTheFile) {
    EXPECT_THAT(importNotes("*Node, nset=All, Input=a.txt, system=C\n"),
                ElementsAre("abaqus.parameter-ignored (NSET of *NODE) 1:8 nset",
                            "abaqus.input-file (*NODE) 1:24 a.txt",
                            "abaqus.coordinate-system (SYSTEM of *NODE) 1:31 system"));
    EXPECT_THAT(importNotes("*Element, Type= s3, Elset= Top\n"),
                ElementsAre("abaqus.parameter-misread (ELSET of *ELEMENT) 1:28 Top"));
    EXPECT_THAT(importNotes("*ELSET, ELSET=Upper part, GENERATE=YES\n"),
                ElementsAre("abaqus.parameter-misread (ELSET of *ELSET) 1:15 Upper part",
                            "abaqus.parameter-misread (GENERATE of *ELSET) 1:27 GENERATE"));
    EXPECT_THAT(importNotes("*SURFACE, TYPE=ELEMENT, NAME=\"a,b\"\n"),
                ElementsAre("abaqus.parameter-misread (NAME of *SURFACE) 1:30 \"a,b\""));
    EXPECT_THAT(importNotes("*ELEMENT, TYPE=S3, ELSET=" + std::string(80, 'x') + "\n"),
                ElementsAre("abaqus.name-cut 1:26 " + std::string(80, 'x')));
    EXPECT_THAT(importNotes("*NODE,\nNSET=A\n\n"),
                ElementsAre("abaqus.keyword-continued (*NODE) 1:0 *NODE,",
                            "abaqus.node-without-number 3:0 "));
}

TEST(AbaqusFindings, ElementTypes) {
    EXPECT_THAT(importNotes("*Element, type=b31, elset=A\n1\n*ELEMENT\n*ELEMENT, TYPE= "
                            "cps4r\n*ELEMENT, TYPE=S8R\n"),
                ElementsAre("abaqus.element-type-other (B31) 1:16 b31",
                            "abaqus.element-type-unknown ((none)) 3:0 *ELEMENT",
                            "abaqus.element-type-flat (CPS4R) 4:17 cps4r",
                            "abaqus.element-type-unknown (S8R) 5:16 S8R"));
}

TEST(AbaqusFindings, FieldsOfNodes) {
    EXPECT_THAT(
        importNotes("*NODE\n1, 2.\n\n4, 1., y, 3.\n1.5, 1., 2., 3.\n6, 1., 2., 3.d-2\n"
                    "7, 1.D3, 0., 0.\n8, , 1., 2.\n9 1. 2. 3.\n10, 1., 2., 3., 0., 1.\n"
                    "99999999999, 0., 0., 0.\n-3\n12, 1., 2., 3. 4.\n13, 1., ,\n"),
        ElementsAre("abaqus.coordinate-missing 2:0 1, 2.", "abaqus.coordinate-missing 12:0 -3",
                    "abaqus.coordinate-missing 14:0 13, 1., ,", "abaqus.node-without-number 3:0 ",
                    "abaqus.node-cut-short 4:8 y", "abaqus.node-cut-short 5:1 1.5",
                    "abaqus.node-cut-short 9:1 9 1. 2. 3.", "abaqus.node-cut-short 13:13 3. 4.",
                    "abaqus.exponent-torn 6:12 3.d-2", "abaqus.exponent-torn 7:4 1.D3",
                    "abaqus.node-cut-short (an empty field) 8:4 ",
                    "abaqus.fields-ignored (*NODE) 10:0 10, 1., 2., 3., 0., 1.",
                    "abaqus.oid-out-of-range 11:1 99999999999", "abaqus.oid-out-of-range 12:1 -3"));
}

TEST(AbaqusFindings, FieldsOfElements) {
    EXPECT_THAT(
        importNotes("*ELEMENT, TYPE=s3\n1, 1, x, 3\n2, 1, 2.5, 3\n3, 1, -2, 3\n"
                    "4, 1, 2,\n\n** 3\n5, 1, 2, 3, 9\n6, 99999999999,\t2, 3 \n7, 1"),
        ElementsAre("abaqus.element-field-stale 2:7 x", "abaqus.field-torn 3:7 2.5",
                    "abaqus.oid-out-of-range 4:7 -2", "abaqus.oid-out-of-range 9:4 99999999999",
                    "abaqus.element-runs-on 7:1 ** 3", "abaqus.element-nodes-ignored (S3) 8:13 9",
                    "abaqus.element-incomplete 10:0 7, 1"));
}

TEST(AbaqusFindings, FieldsOfSets) {
    EXPECT_THAT(importNotes("*ELSET, ELSET=A\n1, TOP, 2.5, 0\n"),
                ElementsAre("abaqus.set-member-name 2:4 TOP", "abaqus.field-torn 2:9 2.5",
                            "abaqus.oid-out-of-range 2:14 0"));
    EXPECT_THAT(importNotes("*ELSET, GENERATE\n 1, 9, x\nz\n1 , 3\n1, 2\n3, 1, 0,\n"),
                ElementsAre("abaqus.range-unread 2:2 1, 9, x", "abaqus.range-unread 3:1 z",
                            "abaqus.range-unread 4:1 1 , 3", "abaqus.range-replaced 5:0 1, 2",
                            "abaqus.range-replaced 6:0 3, 1, 0,", "abaqus.range-step 6:1 3, 1, 0,",
                            "abaqus.range-backwards 6:1 3, 1, 0,"));
    EXPECT_THAT(importNotes("*ELSET, INTERNAL\n1, 2\nx\n*ELSET, ELSET=B, GENERATE\n1,\n"),
                ElementsAre("abaqus.set-internal 1:0 *ELSET, INTERNAL"));
}

TEST(AbaqusFindings, FieldsOfLoadsSurfacesAndThicknesses) {
    EXPECT_THAT(importNotes("*DLOAD\nSET, P1, 1.\n7, P1\n1.5, P1, 1., 2.\n"
                            "*SURFACE, TYPE=ELEMENT\nA, S1, 2\n\n"),
                ElementsAre("abaqus.load-by-set 2:1 SET", "abaqus.field-torn 4:1 1.5",
                            "abaqus.fields-ignored (*DLOAD) 4:0 1.5, P1, 1., 2.",
                            "abaqus.fields-ignored (*SURFACE) 6:0 A, S1, 2"));
    EXPECT_THAT(importNotes("*SHELL SECTION, MATERIAL=M\nx, 5\n1.D0\n2.x\n3., 5\n"
                            "*SHELL SECTION, MATERIAL=M, ELSET=Rib\n"),
                ElementsAre("abaqus.thickness-unread 2:1 x, 5", "abaqus.exponent-torn 3:1 1.D0",
                            "abaqus.field-torn 4:1 2.x", "abaqus.thickness-replaced 4:0 2.x",
                            "abaqus.thickness-replaced 5:0 3., 5",
                            "abaqus.fields-ignored (*SHELL SECTION) 5:0 3., 5",
                            "abaqus.thickness-missing 6:0 RIB"));
}

TEST(AbaqusFindings, AnEarlyEndWithTheNumberOfLinesThatAreLost) {
    EXPECT_THAT(importNotes("*SURFACE, NAME=A\n*HEADING\n"),
                ElementsAre("abaqus.surface-ends-reading 1:0 1 line after it is not read"));
    EXPECT_THAT(importNotes("*NODE\n*SHELL SECTION\n1.\n" + std::string(2000, 'x') + "\n*HEADING"),
                ElementsAre("abaqus.shell-section-ends-reading 2:0 3 lines after it are not read"));
    EXPECT_THAT(importNotes("*SURFACE"),
                ElementsAre("abaqus.surface-ends-reading 1:0 0 lines after it are not read"));
}

TEST(AbaqusFindings, LinesThatAreCut) {
    const std::string first = "*HEADING" + std::string(503, ' ');
    ASSERT_EQ(first.size(), 511u);
    EXPECT_THAT(
        importNotes(first + "x\n*NODE\nx\n"),
        ElementsAre("abaqus.line-cut 1:0 " + first.substr(0, 80),
                    "abaqus.keyword-passed-over (*HEADING (title)) 1:0 " + first.substr(0, 80),
                    "abaqus.node-without-number 3:0 x"));
    EXPECT_THAT(importNotes("*NODE\n1, 1., 1., 1." + std::string(498, ' ') + "2, y\n"),
                ElementsAre("abaqus.line-cut 2:0 1, 1., 1., 1." + std::string(67, ' '),
                            "abaqus.node-cut-short 2:515 y"));
    EXPECT_THAT(importNotes(std::string_view("*NODE\n1, 1., 1.\0, 2.\n", 21)),
                ElementsAre("abaqus.nul-character 2:0 1, 1., 1.",
                            "abaqus.coordinate-missing 2:0 1, 1., 1."));
}

TEST(AbaqusFindings, TheCountingPassSaysNothing) {
    const test::TempFolder folder;
    const test::CapturedOutput quiet;
    const std::string path = folder.write(
        "deck.inp", "*HEADING\n*ELEMENT, TYPE=S8R\n*ELSET, INTERNAL\n*NODE\nx\n*SURFACE\n");
    AbaqusModel model;
    text::Findings findings;
    ASSERT_TRUE(importDeck(model, path.c_str(), {&findings, nullptr}));
    for (const Finding kind :
         {Finding::kKeywordPassedOver, Finding::kElementTypeUnknown, Finding::kSetInternal,
          Finding::kNodeWithoutNumber, Finding::kSurfaceEndsReading})
        EXPECT_EQ(test::countOf(findings, kind), 1u);
}

TEST(AbaqusFindings, SectionsReducedAndMerged) {
    EXPECT_THAT(sortNotes("*NODE\n1, 0., 0., 0.\n*ELEMENT, TYPE=C3D4\n1, 1, 1, 1, 1\n"
                          "*ELEMENT, TYPE=C3D10\n3, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1\n"
                          "*ELEMENT, TYPE=S3, ELSET=A\n*ELEMENT, TYPE=S3, ELSET=A\n"),
                ElementsAre("abaqus.sections-merged ((no name)) 0:0 (no name)",
                            "abaqus.sections-merged (A) 0:0 A",
                            "abaqus.section-reduced (C3D10) 0:0 C3D10"));
}

// Shells 1 to 3, in a section of their own.
constexpr const char* kShells =
    "*NODE\n1, 0., 0., 0.\n*ELEMENT, TYPE=S3, ELSET=LONE\n1, 1, 1, 1\n2, 1, 1, 1\n3, 1, 1, 1\n";

TEST(AbaqusFindings, SectionsSplit) {
    EXPECT_THAT(sortNotes(kShells + std::string("*ELSET, ELSET=A, GENERATE\n1, 3\n")),
                ElementsAre("abaqus.section-split (LONE) 0:0 LONE"));
    EXPECT_THAT(
        sortNotes(kShells + std::string("*ELSET, ELSET=TOP\n1\n"
                                        "*ELSET, ELSET=A, GENERATE\n1, 2\n"
                                        "*ELSET, ELSET=B, GENERATE\n2, 5, 3\n")),
        ElementsAre("abaqus.section-misnamed (A) 0:0 A", "abaqus.section-misnamed (B) 0:0 B",
                    "abaqus.element-in-two-sets 0:0 element 2",
                    "abaqus.range-element-unknown 0:0 element 5",
                    "abaqus.range-rows-blank (B) 0:0 B", "abaqus.element-in-no-set 0:0 element 3"));
    EXPECT_THAT(sortNotes(kShells + std::string("*ELSET, ELSET=A, GENERATE\n3, 1\n")),
                ElementsAre("abaqus.too-many-rows 0:0 "));
}

TEST(AbaqusFindings, SetsThatStandForOthers) {
    EXPECT_THAT(sortNotes(kShells + std::string("*ELSET, ELSET=A\n1\n*ELSET, ELSET=A\n1\n"
                                                "*ELSET, ELSET=D\n2\n*ELSET, ELSET=E\n3\n")),
                ElementsAre("abaqus.set-shifted (D) 0:0 D", "abaqus.set-shifted (E) 0:0 E"));
}

TEST(AbaqusFindings, LoadsAndSurfacesWithoutFaces) {
    EXPECT_THAT(
        sortNotes("*NODE\n1, 0., 0., 0.\n*ELEMENT, TYPE=C3D4, ELSET=B\n1, 1, 1, 1, 1\n"
                  "*ELEMENT, TYPE=S4\n5, 1, 1, 1, 1\n*ELSET, ELSET=B\n1, 9, -1\n"
                  "*DLOAD\n1, P9, 1.\n1, P6, 1.\n1, P2, 1.\n3, P1\n-1, P1\n1, P2\n5, P1\n"
                  "*SURFACE, TYPE=ELEMENT, NAME=S\nB, S1\nC, S1\nB\nB, S1\n"),
        ElementsAre("abaqus.face-label 0:0 P9 of element 1", "abaqus.face-label 0:0 (none) of B",
                    "abaqus.face-missing 0:0 face 6 of element 1",
                    "abaqus.face-element-unknown 0:0 face 1 of element 3",
                    "abaqus.face-element-unknown 0:0 face 1 of element -1",
                    "abaqus.face-element-unknown 0:0 element 9",
                    "abaqus.face-element-unknown 0:0 element -1",
                    "abaqus.face-repeated 0:0 face 2 of element 1",
                    "abaqus.face-repeated 0:0 face 1 of set B",
                    "abaqus.face-of-shell 0:0 face 1 of element 5",
                    "abaqus.set-shadows-block (B) 0:0 B", "abaqus.set-shadows-block (B) 0:0 B",
                    "abaqus.set-shadows-block (B) 0:0 B", "abaqus.surface-set-unknown 0:0 C"));
}

TEST(AbaqusFindings, NothingToSort) {
    EXPECT_THAT(sortNotes("*NODE\n1, 0., 0., 0.\n"), ElementsAre("abaqus.nothing-to-sort 0:0 "));
}

}  // namespace
}  // namespace kvocaeio::abaqus
