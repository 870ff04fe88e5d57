/// What an import and a normalisation tell of a deck.
#include "abaqus/findings.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "abaqus/import.h"
#include "abaqus/normalise.h"
#include "support/captured_output.h"
#include "support/files.h"

namespace kvocaeio::abaqus {
namespace {

struct Note {
    std::string_view code;
    std::size_t line;
    std::size_t column;
    std::string what;
    bool operator==(const Note&) const = default;
};

void PrintTo(const Note& note, std::ostream* out) {
    *out << note.code << ' ' << note.line << ':' << note.column << " '" << note.what << "'";
}

using Notes = std::vector<Note>;

// Kind after kind, each in the order of the deck.
Notes notesOf(const text::Findings& findings) {
    Notes notes;
    for (std::size_t kind = 0; kind < findings.kinds().size(); ++kind)
        for (const text::FindingPlace& place : findings.places(kind))
            notes.push_back(
                {findings.kinds()[kind].code, place.line, place.column, std::string(place.text())});
    return notes;
}

Notes importNotes(std::string_view deck) {
    const test::TempFolder folder;
    const test::CapturedOutput quiet;
    AbaqusModel model;
    text::Findings findings(kFindingKinds);
    const std::string path = folder.write("deck.inp", deck);
    EXPECT_TRUE(importDeck(model, path.c_str(), {&findings, nullptr}));
    return notesOf(findings);
}

Notes sortNotes(std::string_view deck) {
    const test::TempFolder folder;
    const test::CapturedOutput quiet;
    AbaqusModel model;
    EXPECT_TRUE(importDeck(model, folder.write("deck.inp", deck).c_str()));
    text::Findings findings(kFindingKinds);
    SortData(model, {&findings, nullptr});
    return notesOf(findings);
}

TEST(AbaqusFindings, TheTableIsInTheOrderOfTheEnum) {
    const auto codeOf = [](Finding kind) {
        return kFindingKinds[static_cast<std::size_t>(kind)].code;
    };
    EXPECT_EQ(codeOf(Finding::kLineCut), "abaqus.line-cut");
    EXPECT_EQ(codeOf(Finding::kKeywordUnknown), "abaqus.keyword-unknown");
    EXPECT_EQ(codeOf(Finding::kElementTypeUnknown), "abaqus.element-type-unknown");
    EXPECT_EQ(codeOf(Finding::kSetInternal), "abaqus.set-internal");
    EXPECT_EQ(codeOf(Finding::kLineWithoutEntry), "abaqus.line-without-entry");
    EXPECT_EQ(codeOf(Finding::kFieldUnread), "abaqus.field-unread");
    EXPECT_EQ(codeOf(Finding::kElementIncomplete), "abaqus.element-incomplete");
    EXPECT_EQ(codeOf(Finding::kPassEnded), "abaqus.pass-ended");
    EXPECT_EQ(codeOf(Finding::kSetRepeated), "abaqus.set-repeated");
    EXPECT_EQ(codeOf(Finding::kSectionLeftOut), "abaqus.section-left-out");
    EXPECT_EQ(codeOf(Finding::kSectionsMerged), "abaqus.sections-merged");
    EXPECT_EQ(codeOf(Finding::kSectionSplit), "abaqus.section-split");
    EXPECT_EQ(codeOf(Finding::kLoadWithoutFace), "abaqus.load-without-face");
    EXPECT_EQ(codeOf(Finding::kSurfaceItemUnknown), "abaqus.surface-item-unknown");
}

constexpr const char* kWellFormed =
    "*NODE\n** comment\n1, 0., 0., 0.\n*ELEMENT, TYPE=S3, ELSET=A\n1, 1,\n1, 1\n"
    "*ELSET, ELSET=B\n1\n*SURFACE, TYPE=ELEMENT, NAME=S\nB, S1\n"
    "*SHELL SECTION, MATERIAL=M\n1.5,\n";

TEST(AbaqusFindings, NoneInAWellFormedDeck) {
    EXPECT_EQ(importNotes(kWellFormed), Notes());
    EXPECT_EQ(sortNotes(kWellFormed), Notes());
}

TEST(AbaqusFindings, UnknownKeywordsAndTypes) {
    EXPECT_EQ(importNotes("*Heading\ntext\n*Element, type=b31, elset=A\n1\n*ELEMENT\n"),
              (Notes{{"abaqus.keyword-unknown", 1, 0, "*Heading"},
                     {"abaqus.element-type-unknown", 3, 16, "b31"},
                     {"abaqus.element-type-unknown", 5, 0, "*ELEMENT"}}));
}

TEST(AbaqusFindings, FieldsThatCannotBeRead) {
    EXPECT_EQ(importNotes("*NODE\n1, 2.\n\n4, 1., y, 3.\n1.5, 1., 2., 3.\n"),
              (Notes{{"abaqus.field-unread", 2, 4, "2."},
                     {"abaqus.field-unread", 3, 0, ""},
                     {"abaqus.field-unread", 4, 8, "y"},
                     {"abaqus.field-unread", 5, 1, "1.5"}}));
    EXPECT_EQ(importNotes("*DLOAD\nSET, P1, 1.\n7, P1\n*SHELL SECTION, MATERIAL=M\nx, 5\n"),
              (Notes{{"abaqus.field-unread", 2, 1, "SET"},
                     {"abaqus.field-unread", 3, 0, "7, P1"},
                     {"abaqus.field-unread", 5, 1, "x"}}));
    EXPECT_EQ(importNotes("*ELSET, GENERATE\n1, 9, x\nz\n*ELSET, ELSET=B, GENERATE\n1, 2\n"),
              (Notes{{"abaqus.field-unread", 2, 7, "x"},
                     {"abaqus.field-unread", 3, 1, "z"},
                     {"abaqus.field-unread", 5, 4, "2"}}));
}

TEST(AbaqusFindings, LinesWithoutEntries) {
    EXPECT_EQ(importNotes("*ELEMENT, TYPE=S3\n,\n*SURFACE, TYPE=ELEMENT\n\n*DLOAD\n , \n"),
              (Notes{{"abaqus.line-without-entry", 2, 0, ","},
                     {"abaqus.line-without-entry", 4, 0, ""},
                     {"abaqus.line-without-entry", 6, 0, " , "}}));
}

TEST(AbaqusFindings, InternalSetsAndWhatFollowsThem) {
    EXPECT_EQ(importNotes("*ELSET, INTERNAL\n1, 2\n"),
              (Notes{{"abaqus.keyword-unknown", 2, 0, "1, 2"},
                     {"abaqus.set-internal", 1, 0, "*ELSET, INTERNAL"}}));
}

TEST(AbaqusFindings, AnEarlyEnd) {
    EXPECT_EQ(importNotes("*SURFACE, NAME=A\n*HEADING\n"),
              (Notes{{"abaqus.pass-ended", 1, 0, "*SURFACE, NAME=A"}}));
    EXPECT_EQ(importNotes("*SHELL SECTION\n*HEADING\n"),
              (Notes{{"abaqus.pass-ended", 1, 0, "*SHELL SECTION"}}));
    EXPECT_EQ(importNotes("*ELEMENT, TYPE=S3\n1, 2"),
              (Notes{{"abaqus.element-incomplete", 2, 0, "1, 2"}}));
}

TEST(AbaqusFindings, LinesThatAreCut) {
    const std::string first = "*HEADING" + std::string(503, ' ');
    ASSERT_EQ(first.size(), 511u);
    EXPECT_EQ(importNotes(first + "x\n*NODE\n1\n"),
              (Notes{{"abaqus.line-cut", 1, 0, first.substr(0, 80)},
                     {"abaqus.keyword-unknown", 1, 0, first.substr(0, 80)},
                     {"abaqus.field-unread", 3, 1, "1"}}));
}

TEST(AbaqusFindings, TheCountingPassSaysNothing) {
    const test::TempFolder folder;
    const test::CapturedOutput quiet;
    const std::string path =
        folder.write("deck.inp", "*HEADING\n*ELEMENT, TYPE=B31\n*ELSET, INTERNAL\n*SURFACE\n");
    AbaqusModel model;
    text::Findings findings(kFindingKinds);
    ASSERT_TRUE(importDeck(model, path.c_str(), {&findings, nullptr}));
    for (const Finding kind : {Finding::kKeywordUnknown, Finding::kElementTypeUnknown,
                               Finding::kSetInternal, Finding::kPassEnded})
        EXPECT_EQ(findings.count(static_cast<std::size_t>(kind)), 1u);
}

TEST(AbaqusFindings, SectionsMergedAndLeftOut) {
    EXPECT_EQ(
        sortNotes("*NODE\n1, 0., 0., 0.\n*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 1, 1, 1\n"
                  "*ELEMENT, TYPE=B31, ELSET=A\n2\n"
                  "*ELEMENT, TYPE=C3D4, ELSET=A\n3, 1, 1, 1, 1\n"),
        (Notes{{"abaqus.section-left-out", 0, 0, "B31"}, {"abaqus.sections-merged", 0, 0, "A"}}));
}

TEST(AbaqusFindings, SetsRepeatedAndASectionSplit) {
    EXPECT_EQ(sortNotes("*NODE\n1, 0., 0., 0.\n*ELEMENT, TYPE=S3, ELSET=LONE\n1, 1, 1, 1\n"
                        "*ELSET, ELSET=A, GENERATE\n1, 1, 1\n*ELSET, ELSET=A\n1\n"),
              (Notes{{"abaqus.set-repeated", 0, 0, "A"}, {"abaqus.section-split", 0, 0, "LONE"}}));
}

TEST(AbaqusFindings, LoadsAndSurfacesWithoutFaces) {
    EXPECT_EQ(sortNotes("*NODE\n1, 0., 0., 0.\n*ELEMENT, TYPE=C3D4\n1, 1, 1, 1, 1\n"
                        "*ELSET, ELSET=A\n1\n*DLOAD\n1, P9, 1.\n1, GRAV, 1.\n1, P2, 1.\n"
                        "*SURFACE, TYPE=ELEMENT, NAME=S\nA, S1\nB, S1\nA\n"),
              (Notes{{"abaqus.load-without-face", 0, 0, "P9"},
                     {"abaqus.load-without-face", 0, 0, "GRAV"},
                     {"abaqus.surface-item-unknown", 0, 0, "B"},
                     {"abaqus.surface-item-unknown", 0, 0, "A"}}));
}

}  // namespace
}  // namespace kvocaeio::abaqus
