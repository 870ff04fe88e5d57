/// A reader's life: before a deck, decks that fail, a second deck, copies.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <new>
#include <string>
#include <type_traits>

#include "nastran/deck.h"
#include "support/captured_output.h"
#include "support/comma_locale.h"

namespace kvocaeio::test {
namespace {

const std::string kDeck = kGrid + kTetra +
                          "GRID           2       0     1.5     2.0     3.0\n"
                          "PSOLID         1       1       3\n";

static_assert(std::has_virtual_destructor_v<KVONASTRAN_Reader>);

// The deck above, as read.
void expectDeck(const float* nodes, const int* elements, const int* sections) {
    EXPECT_EQ(nodes[4], 2.0F);
    EXPECT_EQ(nodes[5], 1.5F);
    EXPECT_EQ(elements[0], 1);
    EXPECT_EQ(sections[2], 3);
}

void expectNothing(KVONASTRAN_Reader& reader) {
    EXPECT_EQ(reader.GetNodeCout(), 0);
    EXPECT_EQ(reader.GetElemCout(), 0);
    EXPECT_EQ(reader.GetSectionCout(), 0);
    EXPECT_EQ(reader.GetPropertiesCout(), 0);
    EXPECT_EQ(reader.GetNodeVector(), nullptr);
    EXPECT_EQ(reader.GetElemVector(), nullptr);
    EXPECT_EQ(reader.GetSectionVector(), nullptr);
}

TEST(ReaderLifecycle, ANewReaderHasNothing) {
    KVONASTRAN_Reader reader;
    expectNothing(reader);
}

TEST(ReaderLifecycle, DecksThatDoNotOpenGiveFalse) {
    TempFolder folder;
    folder.makeFolder("folder");
    KVONASTRAN_Reader reader;
    EXPECT_FALSE(reader.SetFilePath(nullptr));
    EXPECT_FALSE(reader.SetFilePath(""));
    EXPECT_FALSE(reader.SetFilePath(folder.file("missing.nas").c_str()));
    EXPECT_FALSE(reader.SetFilePath(folder.file("folder").c_str()));
    EXPECT_FALSE(reader.SetFilePath(folder.file(std::string(5000, 'x')).c_str()));
    expectNothing(reader);
}

TEST(ReaderLifecycle, ADeckThatFailsLeavesNothing) {
    ReadDeck deck("PSOLID         1       1       3\n");
    EXPECT_FALSE(deck.result);
    expectNothing(deck.reader);
    EXPECT_TRUE(deck.reader.SetFilePath(deck.folder.write("deck.nas", kDeck).c_str()));
    EXPECT_EQ(deck.reader.GetNodeCout(), 2);
}

TEST(ReaderLifecycle, TheDeckIsClosedAndUnchanged) {
    ReadDeck deck(kDeck);
    ASSERT_TRUE(deck.result);
    EXPECT_EQ(readBytes(deck.folder.path() / "deck.nas"), kDeck);
    std::error_code error;
    // A file that is open cannot be removed on Windows.
    EXPECT_TRUE(std::filesystem::remove(deck.folder.path() / "deck.nas", error)) << error.message();
    expectDeck(deck.reader.GetNodeVector(), deck.reader.GetElemVector(),
               deck.reader.GetSectionVector());
}

TEST(ReaderLifecycle, NothingIsPrinted) {
    CapturedOutput output;
    EXPECT_TRUE(ReadDeck(kDeck).result);
    EXPECT_FALSE(ReadDeck("").result);
    EXPECT_EQ(output.text(), "");
}

TEST(ReaderLifecycle, ASecondDeckHasArraysOfItsOwn) {
    ReadDeck deck(kDeck);
    ASSERT_TRUE(deck.result);
    const float* const nodes = deck.reader.GetNodeVector();
    const int* const elements = deck.reader.GetElemVector();
    const int* const sections = deck.reader.GetSectionVector();
    for (int time = 0; time < 3; ++time) {
        const std::string path =
            deck.folder.write("second.nas", "GRID,7\n" + kTetra + "PSHELL,5,1,2\n");
        ASSERT_TRUE(deck.reader.SetFilePath(path.c_str()));
        EXPECT_EQ(deck.reader.GetNodeCout(), 7);
        EXPECT_EQ(deck.reader.GetElemCout(), 1);
        EXPECT_EQ(deck.reader.GetSectionCout(), 5);
        EXPECT_EQ(deck.node(7)[0], 7.0F);
        EXPECT_EQ(deck.node(2), kNoNode);
        EXPECT_NE(deck.reader.GetNodeVector(), nodes);
    }
    expectDeck(nodes, elements, sections);
}

TEST(ReaderLifecycle, ASecondDeckThatFailsLeavesTheArrays) {
    for (const std::string second : {"", "GRID           1\n"}) {
        ReadDeck deck(kDeck);
        ASSERT_TRUE(deck.result);
        const float* const nodes = deck.reader.GetNodeVector();
        EXPECT_FALSE(deck.reader.SetFilePath(deck.folder.write("bad.nas", second).c_str()));
        EXPECT_EQ(deck.reader.GetNodeCout(), second.empty() ? 0 : 1);
        EXPECT_FALSE(deck.reader.SetFilePath(deck.folder.file("missing.nas").c_str()));
        EXPECT_EQ(deck.reader.GetNodeCout(), 0);
        EXPECT_EQ(deck.reader.GetElemCout(), 0);
        EXPECT_EQ(deck.reader.GetNodeVector(), nodes);
        expectDeck(nodes, deck.reader.GetElemVector(), deck.reader.GetSectionVector());
        EXPECT_EQ(deck.reader.GetPropertiesCout(), 1);
    }
}

TEST(ReaderLifecycle, NumbersOfTheDeckBeforeAreForgotten) {
    ReadDeck deck("GRID           2       0     1.5     2.0     3.0\n" + kTetra);
    ASSERT_TRUE(deck.reader.SetFilePath(
        deck.folder.write("deck.nas", "GRID           2       0       x\n" + kTetra).c_str()));
    EXPECT_EQ(deck.node(2), (NodeRow{2, 0, 0, 0}));
}

// A copy that is never destroyed, since both own the arrays.
KVONASTRAN_Reader* copyOf(const KVONASTRAN_Reader& reader) {
    alignas(KVONASTRAN_Reader) static unsigned char memory[sizeof(KVONASTRAN_Reader)];
    return new (memory) KVONASTRAN_Reader(reader);
}

TEST(ReaderLifecycle, CopiesShareTheArrays) {
    ReadDeck deck(kDeck);
    KVONASTRAN_Reader* const copy = copyOf(deck.reader);
    EXPECT_EQ(copy->GetNodeCout(), 2);
    EXPECT_EQ(copy->GetElemCout(), 1);
    EXPECT_EQ(copy->GetSectionCout(), 1);
    EXPECT_EQ(copy->GetPropertiesCout(), 1);
    EXPECT_EQ(copy->GetNodeVector(), deck.reader.GetNodeVector());
    EXPECT_EQ(copy->GetElemVector(), deck.reader.GetElemVector());
    EXPECT_EQ(copy->GetSectionVector(), deck.reader.GetSectionVector());
}

TEST(ReaderLifecycle, ACopyCountsTheMaterialsOfItsOwnDeck) {
    ReadDeck deck(kDeck + "PSOLID         2       2\n");
    KVONASTRAN_Reader* const copy = copyOf(deck.reader);
    for (const int sections : {1, 10, 200000}) {
        std::string second = kGrid + kTetra;
        for (int id = 1; id <= sections; ++id) {
            char card[40];
            std::snprintf(card, sizeof card, "PSOLID  %8d       1\n", id);
            second += card;
        }
        ASSERT_TRUE(copy->SetFilePath(deck.folder.write("second.nas", second).c_str()));
        EXPECT_EQ(copy->GetSectionCout(), sections);
        EXPECT_EQ(deck.reader.GetSectionCout(), 2);
        EXPECT_EQ(deck.reader.GetPropertiesCout(), 2);
        EXPECT_EQ(copy->GetPropertiesCout(), 1);
    }
}

TEST(ReaderLifecycle, CountsOfADeckThatFailsAreThoseOfItsScan) {
    ReadDeck nodesOnly("GRID           1\nGRID          10\n");
    EXPECT_FALSE(nodesOnly.result);
    EXPECT_EQ(nodesOnly.reader.GetNodeCout(), 10);
    EXPECT_EQ(nodesOnly.reader.GetNodeVector(), nullptr);
    ReadDeck elementsOnly(kTetra);
    EXPECT_FALSE(elementsOnly.result);
    EXPECT_EQ(elementsOnly.reader.GetElemCout(), 1);
    EXPECT_EQ(elementsOnly.reader.GetElemVector(), nullptr);
}

TEST(ReaderLifecycle, AssignmentSharesTheArrays) {
    ReadDeck deck(kDeck);
    // What a reader had before is not released: here its first owner did so.
    KVONASTRAN_Reader* const other = copyOf(ReadDeck(kDeck).reader);
    *other = deck.reader;
    EXPECT_EQ(other->GetNodeCout(), 2);
    EXPECT_EQ(other->GetNodeVector(), deck.reader.GetNodeVector());
    EXPECT_EQ(other->GetPropertiesCout(), 1);
}

TEST(ReaderLifecycle, PathsMayBeLong) {
    TempFolder folder;
    const std::string path = folder.longPath("deck.nas");
    std::ofstream(path, std::ios::binary) << kDeck;
    if (readBytes(path) != kDeck)
        GTEST_SKIP() << "no such paths here";
    KVONASTRAN_Reader reader;
    EXPECT_TRUE(reader.SetFilePath(path.c_str()));
    EXPECT_EQ(reader.GetNodeCout(), 2);
}

TEST(ReaderLifecycle, TheHostsLocaleDoesNotMatter) {
    const CommaLocale locale;
    if (!locale.found())
        GTEST_SKIP() << kNoCommaLocale;
    ReadDeck deck(kDeck);
    EXPECT_EQ(deck.node(2), (NodeRow{2, 1.5F, 2, 3}));
}

}  // namespace
}  // namespace kvocaeio::test
