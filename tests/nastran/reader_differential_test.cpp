/// Random decks through the reader and through its plain twin: both must hand out the same, to the
/// last bit of every float.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "nastran/card.h"
#include "nastran/cards.h"
#include "nastran/deck_generator.h"
#include "nastran/naive_reader.h"
#include "nastran/twin_imports.h"
#include "support/files.h"
#include "text/digest.h"
#include <kvocaeio/nastran.h>

namespace kvocaeio::test {
namespace {

constexpr std::uint64_t kFirstSeed = 20240917;

// Where the library is not optimised, or watched by a sanitizer, one of twenty must do.
#if defined(NDEBUG)
constexpr std::uint64_t kThousand = 1000;
constexpr std::uint64_t kCostlyOneIn = 1;
#else
constexpr std::uint64_t kThousand = 50;
constexpr std::uint64_t kCostlyOneIn = 10;
#endif

/// Arrays beyond this may not be had where memory is short.
constexpr int kManyRows = 1'000'000;

bool isHuge(const NaiveDeck& deck) {
    return deck.nodeCount > kManyRows || deck.elemCount > kManyRows ||
           deck.sectionCount > kManyRows;
}

/// A deck in a file as long as this is there.
struct DeckFile {
    DeckFile(const TempFolder& folder, const std::string& deck)
        : path(folder.write("deck.nas", deck)) {}
    // Some file systems are slow to write over a file, and quick to make a new one.
    ~DeckFile() { std::filesystem::remove(path); }

    std::string path;
};

bool read(const TempFolder& folder, const std::string& deck, KVONASTRAN_Reader& reader) {
    return reader.SetFilePath(DeckFile(folder, deck).path.c_str());
}

#if defined(__GLIBC__)  // another library's sscanf may miss the last bit of a real
/// Of longer arrays only the rows that some card wrote are looked at.
constexpr int kRowsToWalk = 500;

// Rows are the same to the bit, and zero where the plain reader has none.
template <class Number, std::size_t kWidth>
std::string differenceOfRows(const char* table, const Number* vector, int count,
                             std::map<int, std::array<Number, kWidth>> rows) {
    for (int oid = 1; oid <= std::min(count, kRowsToWalk); ++oid)
        rows.emplace(oid, std::array<Number, kWidth>{});
    for (const auto& [oid, expected] : rows) {
        const Number* const actual = vector + (static_cast<std::size_t>(oid) - 1) * kWidth;
        if (std::memcmp(actual, expected.data(), sizeof expected) == 0)
            continue;
        std::string characters = table + (" " + std::to_string(oid)) + ":";
        for (std::size_t i = 0; i < kWidth; ++i)
            characters += " " + std::to_string(actual[i]) + "/" + std::to_string(expected[i]);
        return characters;
    }
    return {};
}

/// What differs, the reader's value first; empty when nothing does.
std::string difference(KVONASTRAN_Reader& reader, bool result, const NaiveDeck& naive) {
    if (isHuge(naive) && !result)
        return {};
    std::string characters;
    const auto compare = [&](const char* what, int actual, int expected) {
        if (actual != expected)
            characters += std::string(what) + " " + std::to_string(actual) + "/" +
                          std::to_string(expected) + " ";
    };
    compare("result", result, naive.result);
    compare("nodes", reader.GetNodeCout(), naive.nodeCount);
    compare("elements", reader.GetElemCout(), naive.elemCount);
    compare("sections", reader.GetSectionCout(), naive.sectionCount);
    if (!characters.empty() || isHuge(naive) || !result)
        return characters;
    compare("materials", reader.GetPropertiesCout(), naive.propertiesCount);
    compare("materials, again", reader.GetPropertiesCout(), naive.propertiesCount);
    std::map<int, std::array<int, 3>> sections;
    for (const auto& section : naive.sections)
        sections[static_cast<int>(sections.size()) + 1] = section;
    return characters +
           differenceOfRows("node", reader.GetNodeVector(), naive.nodeCount, naive.nodes) +
           differenceOfRows("element", reader.GetElemVector(), naive.elemCount, naive.elements) +
           differenceOfRows("section", reader.GetSectionVector(), naive.sectionCount, sections);
}

class ReaderDifferential : public testing::Test {
  protected:
    // The difference with the deck, to be compared with nothing.
    std::string differenceOf(const std::string& name, const std::string& deck) {
        naive = naiveRead(deck);
        // (A sanitizer writes an eighth of what an array could hold when it is released.)
        if (isHuge(naive) && hugeDecks++ % kCostlyOneIn != 0)
            return {};
        KVONASTRAN_Reader reader;
        const DeckFile file(folder, deck);
        const bool result = reader.SetFilePath(file.path.c_str());
        std::string found = difference(reader, result, naive);
        if (found.empty() && !isHuge(naive) && decks++ % kCostlyOneIn == 0)
            found = differenceToTwins(reader, result, file.path.c_str());
        return found.empty() ? found : name + ": " + found + "\n" + deck;
    }

    TempFolder folder;
    NaiveDeck naive;
    std::uint64_t decks = 0;
    std::uint64_t hugeDecks = 0;
};

TEST_F(ReaderDifferential, RandomDecksAreReadAlike) {
    constexpr std::uint64_t kDecks = 50 * kThousand;
    std::uint64_t failed = 0, withSections = 0, huge = 0;
    std::map<int, std::uint64_t> decksWithCode;
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + kDecks; ++seed) {
        const std::string deck = DeckGenerator(seed).deck();
        ASSERT_EQ(differenceOf("seed " + std::to_string(seed), deck), "");
        failed += !naive.result;
        huge += isHuge(naive);
        withSections += naive.propertiesCount > 0;
        for (const auto& [code, count] : naive.cards)
            ++decksWithCode[code];
    }
    // Mostly sound decks, and enough of everything else.
    EXPECT_GT(failed, kDecks / 50);
    EXPECT_LT(failed, kDecks / 6);
    EXPECT_LT(huge, kDecks / 20);
    EXPECT_GT(withSections, kDecks / 4);
    for (const int code : {1, 101, 1001, 1301, 1321, 1331, 2001, 2005, 2301})
        EXPECT_GT(decksWithCode[code], kDecks / 6) << code;
}

TEST_F(ReaderDifferential, NearlyPlainDecksAreReadAlike) {
    constexpr std::uint64_t kDecks = 40 * kThousand;
    std::map<int, std::uint64_t> decksWithCode;
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + kDecks; ++seed) {
        const std::string deck = DeckGenerator(seed).nearlyPlainDeck();
        ASSERT_EQ(differenceOf("seed " + std::to_string(seed), deck), "");
        for (const auto& [code, count] : naive.cards)
            ++decksWithCode[code];
    }
    for (const int code : {1, 101, 1001, 1301, 1321, 1331, 2001, 2005, 2301})
        EXPECT_GT(decksWithCode[code], kDecks / 8) << code;
}

TEST_F(ReaderDifferential, SingleCardsWithAFewCharactersChangedAreReadAlike) {
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + 25 * kThousand; ++seed) {
        DeckGenerator generator(seed);
        std::string deck = "GRID           9       0     0.5    1.25     -3.\n";
        for (std::string& line : generator.card()) {
            generator.mutate(line);
            deck += line;
        }
        deck += "CTETRA         9       1       1       2       3       4\n";
        ASSERT_EQ(differenceOf("seed " + std::to_string(seed), deck), "");
    }
}

/// A deck in which every byte matters to somebody.
const char* const kSample =
    "$ CHEXA\r\n"
    "GRID           1       0    1.5\n"
    "GRID,2,,.5,2.,3.\n"
    "GRID     3              1.5-3   -2.0    1.0E+3\n"
    "PSOLID         1       2       7\n"
    "PBARL,2,1,4.\n"
    "CHEXA          7       1      11      12      13      14      15      16+EL1\n"
    "+EL1          17      18\n"
    "CQUAD8         6       1       1\n"
    "+,5\n"
    "CBAR     5       2       1       2\n"
    "CTETRA,4,1,1,2,3,4\n"
    "CHEXA          3       1       1       2       3       4       5       6\n";

TEST_F(ReaderDifferential, ADeckCutAtEveryByteIsReadAlike) {
    const std::string sample = kSample;
    for (std::size_t length = 0; length <= sample.size(); ++length)
        ASSERT_EQ(differenceOf("cut at " + std::to_string(length), sample.substr(0, length)), "");
}

TEST_F(ReaderDifferential, ADeckWithEachByteReplacedIsReadAlike) {
    const std::string sample = kSample;
    for (std::size_t at = 0; at < sample.size(); ++at)
        for (const char byte : {'\0', '\n', '\r', '\x1A', '$', ',', '+', '-', ' ', '0', 'E', 'L'}) {
            std::string deck = sample;
            deck[at] = byte;
            ASSERT_EQ(differenceOf("byte " + std::to_string(at), deck), "");
        }
}

TEST_F(ReaderDifferential, LinesAboutTheBoundAreReadAlike) {
    for (const std::string line :
         {"GRID           5       0    1.5      2.       3.",
          "CHEXA          7       1      11      12      13      14      15      16",
          "CTETRA         4       1       1       2       3       4", "$", "CQUAD8,9,1,1,2,3,4",
          "PSOLID,1,1"})
        for (const std::size_t bound : {8U, 72U, 80U, 254U, 508U})
            for (std::size_t length = bound - 4; length <= bound + 4; ++length)
                for (const char filler : {' ', '0', ','})
                    for (const std::string lineEnd : {"\n", "\r\n", ""}) {
                        std::string deck = line;
                        deck.resize(length, filler);
                        const std::string next = "GRID,1,0,1.0     2.0     3.0\n";
                        ASSERT_EQ(differenceOf(std::to_string(length),
                                               "CBAR,8,1,1,1\n" + next + deck + lineEnd + next),
                                  "");
                        ASSERT_EQ(differenceOf(std::to_string(length),
                                               "CBAR,8,1,1,1\n" + next + deck + lineEnd),
                                  "");
                    }
}

TEST_F(ReaderDifferential, JunkIsReadAlike) {
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + 5 * kThousand; ++seed) {
        DeckGenerator generator(seed);
        ASSERT_EQ(differenceOf("seed " + std::to_string(seed),
                               "GRID 5" + generator.junk() + "\nCHEXA    5" + generator.junk()),
                  "");
    }
}

// The card reader alone has no file to pay for: a long run of cards, whose numbers may stay for
// later ones.
TEST_F(ReaderDifferential, CardsAreParsedAlike) {
    DeckGenerator generator(kFirstSeed);
    nastran::CardReader reader;
    nastran::CardReader plainReader;
    std::uint64_t glances = 0;
    NaiveNumbers numbers;
    for (std::uint64_t card = 0; card < 400 * kThousand; ++card) {
        if (card % 100 == 0)
            generator = DeckGenerator(kFirstSeed + card);
        std::vector<std::string> lines =
            card % 2 == 0 ? generator.card() : generator.nearlyPlainCard();
        for (std::string& line : lines) {
            if (card % 6 == 0)
                generator.mutate(line);
            line.resize(std::min(line.find('\n') + 1, line.size()));
            line = line.c_str();
        }
        const bool merged = takesNextLine(lines[0]);
        const std::string raw = merged ? lines[0] + continuationOf(lines.back()) : lines[0];
        const int expected = naiveParse(raw, numbers);
        const nastran::Card glanced = cardOf(raw, lines[0].size());
        glances += glanced.glance.rule != nullptr;
        ASSERT_EQ(codeOf(reader.read(glanced)), expected) << card << ": " << raw;
        ASSERT_EQ(codeOf(plainReader.read({raw, {}})), expected) << card << ": " << raw;
        for (const nastran::CardReader* each : {&reader, &plainReader}) {
            const nastran::CardNumbers& actual = each->numbers();
            ASSERT_EQ(actual.ints, numbers.ints) << card << ": " << raw;
            ASSERT_EQ(std::memcmp(&actual.floats, &numbers.floats, sizeof actual.floats), 0)
                << card << ": " << raw;
            ASSERT_EQ(std::memcmp(&actual.doubles, &numbers.doubles, sizeof actual.doubles), 0)
                << card << ": " << raw;
        }
    }
    EXPECT_GT(glances, 100 * kThousand);
}
#endif

TEST(CardTextDifferential, TextsAreNormalisedAlike) {
    nastran::CardText normalised;
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + 100 * kThousand; ++seed) {
        DeckGenerator generator(seed);
        std::string raw = generator.junk();
        if (seed % 2 == 0)
            raw = generator.card()[0] + raw.substr(0, 40);
        const auto steps = [](const std::string& card) {
            return fixExponent(splitFields(fillBlankFields(expandSeparators(card))));
        };
        normalised.normalise(raw, nastran::LineFeeds::kKeep);
        ASSERT_EQ(normalised.view(), steps(raw)) << seed << ": " << raw;
        normalised.normalise(raw, nastran::LineFeeds::kPad);
        ASSERT_EQ(normalised.view(), steps(padLine(raw))) << seed << ": " << raw;
        const std::string padded(normalised.view());
        normalised.clearHexFiller();
        ASSERT_EQ(normalised.view(), clearHexFiller(padded)) << seed << ": " << raw;
    }
}

template <class Number>
void addRows(Digest& digest, const Number* rows, std::size_t count) {
    if (count > 0)
        digest.add({reinterpret_cast<const char*>(rows), count * sizeof(Number)});
}

// The same value where the plain reader was compared and elsewhere: all platforms read the same.
TEST(ReaderDigest, RandomDecksAreReadTheSameOnEveryPlatform) {
    TempFolder folder;
    Digest digest;
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + 2'000; ++seed) {
        const std::string deck = DeckGenerator(seed).deck();
        if (isHuge(naiveRead(deck)))
            continue;
        KVONASTRAN_Reader reader;
        const bool result = read(folder, deck, reader);
        digest.add(result ? "read" : "failed");
        if (!result)
            continue;
        addRows(digest, reader.GetNodeVector(), static_cast<std::size_t>(reader.GetNodeCout()) * 4);
        addRows(digest, reader.GetElemVector(), static_cast<std::size_t>(reader.GetElemCout()) * 9);
        addRows(digest, reader.GetSectionVector(),
                static_cast<std::size_t>(std::max(reader.GetSectionCout(), 0)) * 3);
        digest.add(std::to_string(reader.GetPropertiesCout()));
    }
    EXPECT_EQ(digest.value(), 1542169601723726145U);
}

}  // namespace
}  // namespace kvocaeio::test
