/// What an observer of the scanner is told.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "abaqus/deck_counts.h"
#include "abaqus/deck_scanner.h"
#include "abaqus/deck_store.h"
#include "support/captured_output.h"
#include "support/files.h"
#include "text/file.h"
#include "text/recorder.h"

namespace kvocaeio {
namespace {

using test::Note;
using test::Recorder;
using text::Finding;

// What the storing pass tells; the tables are left empty, which the observer does not see.
std::vector<Note> notesOf(std::string_view deck) {
    const test::TempFolder folder;
    const test::CapturedOutput quiet;
    const text::File file = text::openFile(folder.write("deck.inp", deck).c_str(), "rb");
    text::LineReader reader(file.get(), kDeckLineBound, text::LineMode::kBinary);
    AbaqusModel model;
    model.nodeBlock.ids.resize(10);
    model.nodeBlock.coords.resize(30);
    DeckStore store(model);
    Recorder recorder;
    scanDeck(reader, store, recorder);
    return recorder.notes;
}

TEST(DeckObserver, HearsNothingOfAWellFormedDeck) {
    EXPECT_EQ(notesOf("*NODE\n** comment\n1, 0., 0., 0.\n*ELEMENT, TYPE=S3\n1, 1,\n2, 3\n"
                      "*ELSET, ELSET=A, GENERATE\n1, 5, 1\n*SURFACE, TYPE=ELEMENT, NAME=S\nA, S1\n"
                      "*DLOAD\n1, P1, 2.\n*SHELL SECTION, MATERIAL=M\n1.5,\n"),
              std::vector<Note>());
}

TEST(DeckObserver, HearsOfUnknownKeywordsAndTypes) {
    EXPECT_EQ(notesOf("*HEADING\ntext\n*ELEMENT, TYPE=B31\n1\n"),
              (std::vector<Note>{
                  {Finding::kPassedOver, 1, "*HEADING\n", "the keyword is unknown"},
                  {Finding::kPassedOver, 3, "B31", "the element type is unknown"},
              }));
}

TEST(DeckObserver, HearsOfFieldsThatCannotBeRead) {
    EXPECT_EQ(notesOf("*NODE\n1, 2.\n\n*DLOAD\nSET, P1, 1.\n*SHELL SECTION, MATERIAL=M\nx\n"
                      "*ELSET, GENERATE\n1, 2\n"),
              (std::vector<Note>{
                  {Finding::kStale, 2, "1, 2.\n", "not all of OID, x, y, z can be read"},
                  {Finding::kStale, 3, "\n", "not all of OID, x, y, z can be read"},
                  {Finding::kStale, 5, "SET, P1, 1.\n", "not all of OID, label, value can be read"},
                  {Finding::kStale, 7, "x\n", "the thickness cannot be read"},
                  {Finding::kStale, 9, "1, 2\n", "start, end and step cannot be read"},
              }));
}

TEST(DeckObserver, HearsOfLinesWithoutEntries) {
    EXPECT_EQ(notesOf("*ELEMENT, TYPE=S3\n,\n*SURFACE, TYPE=ELEMENT\n\n*ELSET, INTERNAL\n"),
              (std::vector<Note>{
                  {Finding::kPassedOver, 2, ",\n", "no element stands on the line"},
                  {Finding::kPassedOver, 4, "\n", "no item stands on the line"},
                  {Finding::kPassedOver, 5, "*ELSET, INTERNAL\n", "the set is flagged INTERNAL"},
              }));
}

TEST(DeckObserver, HearsOfAnEarlyEnd) {
    EXPECT_EQ(notesOf("*SURFACE, NAME=A\n*NODE\n"),
              (std::vector<Note>{{Finding::kEndedEarly, 1, "*SURFACE, NAME=A\n",
                                  "the surface's TYPE is not ELEMENT"}}));
    EXPECT_EQ(notesOf("*SHELL SECTION\n*NODE\n"),
              (std::vector<Note>{{Finding::kEndedEarly, 1, "*SHELL SECTION\n",
                                  "the shell section has no MATERIAL"}}));
    EXPECT_EQ(
        notesOf("*ELEMENT, TYPE=S3\n1, 2"),
        (std::vector<Note>{{Finding::kEndedEarly, 2, "1, 2", "the deck ends inside an element"}}));
}

TEST(DeckObserver, HearsOfLinesThatAreCut) {
    const std::string first = "*HEADING" + std::string(503, ' ');
    ASSERT_EQ(first.size(), 511u);
    const auto notes = notesOf(first + "x\n*NODE\n\n");
    ASSERT_EQ(notes.size(), 3u);
    EXPECT_EQ(notes[0], (Note{Finding::kCut, 1, first, "the line is too long"}));
    EXPECT_EQ(notes[2].line, 3u);
}

}  // namespace
}  // namespace kvocaeio
