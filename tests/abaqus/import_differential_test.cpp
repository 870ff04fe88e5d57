/// Random decks: the library and the plain import must leave the same behind.
#include <cstdint>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "abaqus/deck_generator.h"
#include "abaqus/import_comparison.h"
#include "abaqus/naive_import.h"
#include "support/files.h"

namespace kvocaeio::test {
namespace {

// File work is several times as slow under Wine, and so is everything under a sanitizer.
#if defined(_WIN32) || !defined(NDEBUG)
constexpr std::uint64_t kDecks = 1000;
#else
constexpr std::uint64_t kDecks = 30000;
#endif
constexpr std::uint64_t kBatch = 500;
constexpr std::uint64_t kFirstSeed = 20240611;

TEST(ImportDifferential, RandomDecksAreReadAlike) {
    ImportComparison comparison;
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + kDecks; seed += kBatch) {
        std::vector<NamedDeck> decks;
        for (std::uint64_t s = seed; s < seed + kBatch; ++s)
            decks.push_back({"seed " + std::to_string(s), DeckGenerator(s).deck()});
        ASSERT_EQ(comparison.firstDifference(decks), "");
    }
}

TEST(ImportDifferential, TheGeneratorReachesAllTables) {
    TempFolder folder;
    std::size_t nodes = 0, elements = 0, solids = 0, shells = 0, surfaces = 0, loads = 0,
                members = 0, ranges = 0, cutShort = 0;
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + 1000; ++seed) {
        const std::string deck = DeckGenerator(seed).deck();
        const std::string path = folder.write("deck.inp", deck);
        const NaiveImport tables = naiveImport(path);
        std::filesystem::remove(path);
        nodes += tables.nodeIds.size();
        for (const NaiveElements& section : tables.elements) {
            elements += section.ids.size();
            solids += section.geometryType == 2;
        }
        shells += tables.shells.size();
        for (const NaiveSurface& surface : tables.surfaces)
            surfaces += surface.items.size();
        for (const NaiveDload& load : tables.dloads)
            loads += load.values.size();
        for (const NaiveElset& set : tables.elsets) {
            members += set.members.size();
            ranges += set.parameter == "GENERATE";
        }
        cutShort += tables.printed.ends_with("Reading Surface Section...\n") ||
                    tables.printed.ends_with("Reading Shell Section...\n");
    }
    for (const std::size_t reached :
         {nodes, elements, solids, shells, surfaces, loads, members, ranges, cutShort})
        EXPECT_GT(reached, 100U);
}

/// A deck with one of each thing, in which every byte matters to somebody.
const char* const kSample =
    "*Node, nset=All\r\n"
    "1, 0., 1.5e1, -2\n"
    "** note\n"
    "22, 1, 2\n"
    "*Element, type=C3D4, elset=Body\n"
    "7, 1, 22,\n"
    "1, 22\n"
    "*ELEMENT, TYPE=S3\n"
    "8 1 22 1\n"
    "*Elset, elset=A, generate\n"
    "1, 10, 2\n"
    "*Elset, elset=I, internal\n"
    "1\n"
    "*Elset, elset=B\n"
    "7, a\n"
    "*Surface, type=element, name=Top\n"
    "B, s1\n"
    "*Dload\n"
    "7, P1, 3.5\n"
    "*Shell Section, elset=Body, material=M\n"
    "0.25, 5\n"
    "*Step\n"
    "x\n"
    "*Node\n"
    "3, 4, 5, 6\n";

TEST(ImportDifferential, ADeckCutAtEveryByteIsReadAlike) {
    const std::string sample = kSample;
    std::vector<NamedDeck> decks;
    for (std::size_t length = 0; length <= sample.size(); ++length)
        decks.push_back({"cut at " + std::to_string(length), sample.substr(0, length)});
    EXPECT_EQ(ImportComparison().firstDifference(decks), "");
}

TEST(ImportDifferential, ADeckWithEachByteReplacedIsReadAlike) {
    const std::string sample = kSample;
    std::vector<NamedDeck> decks;
    for (std::size_t at = 0; at < sample.size(); ++at)
        for (const char byte : {'\0', '\n', '\r', '*', ',', ' ', '9'}) {
            std::string deck = sample;
            deck[at] = byte;
            decks.push_back({"byte " + std::to_string(at), deck});
        }
    EXPECT_EQ(ImportComparison().firstDifference(decks), "");
}

TEST(ImportDifferential, LinesAboutTheBoundAreReadAlike) {
    std::vector<std::size_t> lengths;
    for (const std::size_t bound : {511U, 1022U, 1533U})
        for (std::size_t length = bound - 4; length <= bound + 4; ++length)
            lengths.push_back(length);
    std::vector<NamedDeck> decks;
    for (const char* text : {"*NODE", "*ELEMENT, TYPE=C3D4, ELSET=A", "** note", "1, 2, 3, 4",
                             "1, 2, 3, 4, 5", "*ELSET, ELSET=A", "*SHELL SECTION, MATERIAL=M"})
        for (const char* lineEnd : {"\n", "\r\n", ""})
            for (const std::size_t length : lengths)
                for (const char* before : {"", "*NODE\n", "*ELEMENT, TYPE=C3D5\n7,\n"}) {
                    std::string line = text;
                    line.resize(length, ' ');
                    decks.push_back(
                        {std::to_string(length), before + line + lineEnd + "*NODE\n5, 6, 7, 8\n"});
                }
    EXPECT_EQ(ImportComparison().firstDifference(decks), "");
}

TEST(ImportDifferential, BinaryJunkIsReadAlike) {
    std::mt19937_64 random(kFirstSeed);
    std::vector<NamedDeck> decks;
    for (int d = 0; d < 300; ++d) {
        std::string deck(random() % 4000, '\0');
        for (char& byte : deck)
            byte = d % 2 == 0 ? static_cast<char>(random() % 256) : "*\n, 1E\0N"[random() % 9];
        decks.push_back({"junk " + std::to_string(d), deck});
    }
    EXPECT_EQ(ImportComparison().firstDifference(decks), "");
}

}  // namespace
}  // namespace kvocaeio::test
