/// Imports that somebody listens to: the same tables, what is noticed, and a host that stops them.
#include "nastran/import.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "nastran/deck.h"
#include "nastran/twin_imports.h"
#include "support/failing_reads.h"
#include "support/files.h"

namespace kvocaeio::test {
namespace {

using nastran::Finding;

class ListenedImport : public testing::Test {
  protected:
    bool import(const std::string& deck) {
        return nastran::importDeck(folder.write("deck.nas", deck).c_str(), info,
                                   {&findings, nullptr});
    }
    std::size_t count(Finding kind) const { return findings.count(static_cast<std::size_t>(kind)); }
    const text::FindingPlace& place(Finding kind, std::size_t number) const {
        return findings.places(static_cast<std::size_t>(kind))[number];
    }

    TempFolder folder;
    nastran::NastranFileInfo info;
    text::Findings findings{nastran::kFindingKinds};
};

TEST_F(ListenedImport, NotesCardsOfUnknownNames) {
    EXPECT_TRUE(import("$ bracket\nSOL 101\n" + kGrid + kTetra +
                       "+              5       6\nCQUAD4         2       1\n\nfoo\nCHEXA,3\n,4\n"));
    ASSERT_EQ(count(Finding::kCardUnknown), 2u);
    EXPECT_EQ(place(Finding::kCardUnknown, 0).line, 2u);
    EXPECT_EQ(place(Finding::kCardUnknown, 0).text(), "SOL 101");
    EXPECT_EQ(place(Finding::kCardUnknown, 1).line, 8u);
}

TEST_F(ListenedImport, NotesFieldsThatKeepAnEarlierCardsValue) {
    EXPECT_TRUE(import(kGrid + kTetra + "GRID           1       0     1.5     abc     2.5\n" +
                       "GRID           1       0     2.5\n"));
    ASSERT_EQ(count(Finding::kFieldStale), 1u);
    EXPECT_EQ(place(Finding::kFieldStale, 0).line, 3u);
    EXPECT_EQ(info.decks[0].nodes[1], 2.5F);
}

TEST_F(ListenedImport, NotesLinesThatAreCut) {
    EXPECT_TRUE(import(kGrid + "$" + std::string(600, '-') + "\n" + kTetra));
    ASSERT_EQ(count(Finding::kLineCut), 2u);
    EXPECT_EQ(place(Finding::kLineCut, 1).line, 2u);
}

TEST_F(ListenedImport, NotesNothingWhileItCounts) {
    EXPECT_FALSE(import("SOL 101\n$" + std::string(600, '-') + "\nGRID         abc\n"));
    for (std::size_t kind = 0; kind < findings.kinds().size(); ++kind)
        EXPECT_EQ(findings.count(kind), 0u) << kind;
}

// A deck of a million characters, in several blocks.
std::string largeDeck() {
    std::string deck;
    for (int i = 0; i < 10'000; ++i)
        deck += kGrid + kTetra;
    return deck + "PSOLID         1       1       1\n";
}

TEST_F(ListenedImport, ThatIsStoppedAtAnyBlockFailsAndLeavesTheDeckBefore) {
    ASSERT_TRUE(import(kGrid + kTetra));
    const float* const nodes = info.decks[0].nodes.get();
    const std::string path = folder.write("large.nas", largeDeck());
    long stops = 0;
    for (bool imported = false; !imported; ++stops) {
        PatientHost host(stops);
        imported = nastran::importDeck(path.c_str(), info, {&findings, &host.watch});
        EXPECT_EQ(host.watch.stopped, !imported) << stops;
        EXPECT_EQ(info.extent.maxNodeId, imported ? 1 : 0) << stops;
        ASSERT_EQ(info.decks.size(), imported ? 2u : 1u) << stops;
        EXPECT_EQ(info.decks[0].nodes.get(), nodes);
        ASSERT_LT(stops, 100);
    }
    EXPECT_GT(stops, 8);
    EXPECT_EQ(info.decks[1].sectionCount, 1);
    EXPECT_TRUE(import(kGrid + kTetra));
}

TEST_F(ListenedImport, AReadErrorIsTheEndOfTheDeck) {
    const std::string path =
        folder.write("deck.nas", kGrid + kTetra + std::string(300'000, '\n') +
                                     "GRID           2       0      4.      5.      6.\n");
    FailingReads inPass1(2);
    EXPECT_TRUE(nastran::importDeck(path.c_str(), info, {&findings, &inPass1.watch}));
    EXPECT_EQ(info.extent.maxNodeId, 1);
    FailingReads inPass2(5);  // the first pass asks three times
    EXPECT_TRUE(nastran::importDeck(path.c_str(), info, {&findings, &inPass2.watch}));
    EXPECT_EQ(info.extent.maxNodeId, 2);
    EXPECT_EQ(info.decks[1].elements[0], 1);
    EXPECT_EQ(info.decks[1].nodes[4], 0.0F);
    EXPECT_EQ(info.decks[1].nodes[5], 0.0F);
}

TEST_F(ListenedImport, MakesTheSameTablesOfAllSampleFiles) {
    std::size_t read = 0;
    for (const char* const samples : {"tests/fuzz/corpus/nastran", "examples/data"})
        for (const auto& file : std::filesystem::directory_iterator(
                 std::filesystem::path(KVOCAEIO_SOURCES) / samples)) {
            if (!file.is_regular_file())
                continue;
            const std::string path = file.path().string();
            KVONASTRAN_Reader reader;
            const bool result = reader.SetFilePath(path.c_str());
            EXPECT_EQ(differenceToTwins(reader, result, path.c_str()), "") << path;
            read += result ? 1 : 0;
        }
    EXPECT_GT(read, 10u);
}

}  // namespace
}  // namespace kvocaeio::test
