/// Random neutral files: both readers and their plain versions must leave the same behind.
#include <cstdint>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "patran/import_comparison.h"
#include "patran/naive_readers.h"
#include "patran/neutral_file.h"
#include "patran/neutral_generator.h"

namespace kvocaeio::test {
namespace {

// File work is several times as slow under Wine, and so is everything under a sanitizer.
#if defined(_WIN32) || !defined(NDEBUG)
constexpr std::uint64_t kCases = 1000;
#else
constexpr std::uint64_t kCases = 46000;  // of more than 50,000 files
#endif
constexpr std::uint64_t kBatch = 500;
constexpr std::uint64_t kFirstSeed = 20240817;

TEST(PatranDifferential, RandomFilesAreReadAlike) {
    ImportComparison comparison;
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + kCases; seed += kBatch) {
        std::vector<NamedCase> cases;
        for (std::uint64_t s = seed; s < seed + kBatch; ++s)
            cases.push_back({"seed " + std::to_string(s), NeutralGenerator(s).files()});
        ASSERT_EQ(comparison.firstDifference(cases), "");
    }
    EXPECT_GT(comparison.withoutLoss(), kCases / 200);
}

/// In how many of 1000 cases something is seen.
struct Reached {
    int nodes = 0, nodesOfBothReaders = 0, elements = 0, mapped = 0, mappedFlat = 0, eightSlots = 0;
    int silent = 0, printedOnce = 0, printedTwice = 0, rowsUnread = 0;
    std::map<int, int> types;  ///< elements of a type, not cases

    void count(const std::vector<std::string>& files) {
        NaivePatranIO bridge;
        NaivePatranReader flat;
        for (const std::string& file : files) {
            bridge.import(file);
            flat.import(file);
        }
        nodes += bridge.GetNodeCount() > 1;
        nodesOfBothReaders += bridge.GetNodeCount() > 1 && flat.GetNodeCout() > 1;
        elements += bridge.GetElementCount() > 1;
        bool anyMapped = false, anyMappedFlat = false, anyEight = false;
        for (const ElementData& element : elementsOf(bridge)) {
            ++types[element.type];
            for (const int corner : element.nodes)
                anyMapped = anyMapped || corner > 1;
        }
        FlatElement element{};
        for (int i = 0; i < bridge.GetElementCount() &&
                        flat.GetElement(i, element.type, element.property, element.nodes.data());
             ++i) {
            for (const int slot : element.nodes)
                anyMappedFlat = anyMappedFlat || slot > 1;
            anyEight = anyEight || element.nodes[7] > 0;
        }
        mapped += anyMapped;
        mappedFlat += anyMappedFlat;
        eightSlots += anyEight;
        rowsUnread += flat.GetElemCount() > bridge.GetElementCount();
        silent += flat.printed().empty();
        printedOnce += flat.printed() == kMetEnd;
        printedTwice += flat.printed() == kMetEndTwice;
    }
};

TEST(PatranDifferential, TheGeneratorReachesWhatMatters) {
    Reached reached;
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + 1000; ++seed)
        reached.count(NeutralGenerator(seed).files());
    EXPECT_GT(reached.nodes, 500);
    EXPECT_GT(reached.nodesOfBothReaders, 400);
    EXPECT_GT(reached.elements, 400);
    EXPECT_GT(reached.mapped, 300);
    EXPECT_GT(reached.mappedFlat, 300);
    EXPECT_GT(reached.eightSlots, 100);
    EXPECT_GT(reached.rowsUnread, 30);
    EXPECT_GT(reached.silent, 300);
    EXPECT_GT(reached.printedOnce, 20);
    EXPECT_GT(reached.printedTwice, 100);
    for (const int type : {0, 2, 3, 4, 5, 7, 8, 10, 11, 12, 13, 14})
        EXPECT_GT(reached.types[type], 20) << "type " << type;
}

/// A file with one of each thing, in which every byte matters to somebody.
std::string sample() {
    return header(25, 0, 0, 1) + "TITLE\n" + summary(4, 3, 2) + property(1, 2, {3, 0.5}) +
           property(2, 3, {1, 4}) + "! a comment\n" + node(5, 0, 0, 0) + node(9, 1, 0, 0) +
           header(6, 1, 1, 2) + integers({1, 2}) + integers({3}) + node(12, 0, 1, 0) +
           node(0, 0, 0, 1) + element(1, 5, 1, {5, 9, 12, 0}) + element(2, 2, 2, {9, 12}) +
           element(3, 3, 7, {0, 12, 9}) + endOfFile();
}

TEST(PatranDifferential, AFileCutAtEveryByteIsReadAlike) {
    const std::string whole = sample();
    std::vector<NamedCase> cases;
    for (std::size_t length = 0; length <= whole.size(); ++length)
        cases.push_back({"cut at " + std::to_string(length), {whole.substr(0, length)}});
    EXPECT_EQ(ImportComparison().firstDifference(cases), "");
}

TEST(PatranDifferential, AFileWithEachByteReplacedIsReadAlike) {
    const std::string whole = sample();
    std::vector<NamedCase> cases;
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (const char byte : {'\0', '\n', '!', '9'}) {
            std::string file = whole;
            file[at] = byte;
            cases.push_back({"byte " + std::to_string(at), {file}});
        }
    EXPECT_EQ(ImportComparison().firstDifference(cases), "");
}

TEST(PatranDifferential, LinesDroppedDoubledAndMovedAreReadAlike) {
    std::vector<std::string> lines;
    for (std::string rest = sample(); !rest.empty();) {
        const std::size_t end = rest.find('\n') + 1;
        lines.push_back(rest.substr(0, end));
        rest.erase(0, end);
    }
    const auto joined = [](const std::vector<std::string>& parts) {
        std::string file;
        for (const std::string& part : parts)
            file += part;
        return file;
    };
    std::vector<NamedCase> cases;
    for (std::size_t at = 0; at < lines.size(); ++at) {
        auto changed = lines;
        changed.erase(changed.begin() + static_cast<std::ptrdiff_t>(at));
        cases.push_back({"dropped " + std::to_string(at), {joined(changed)}});
        for (const char* inserted :
             {"\n", "! c\n", " 1\n", "26\n", "99\n", " 2       1       3\n"}) {
            changed = lines;
            changed.insert(changed.begin() + static_cast<std::ptrdiff_t>(at), inserted);
            cases.push_back({"inserted " + std::to_string(at), {joined(changed)}});
        }
        for (std::size_t to = 0; to < lines.size(); ++to) {
            changed = lines;
            std::swap(changed[at], changed[to]);
            cases.push_back({"swapped " + std::to_string(at), {joined(changed)}});
            cases.push_back({"second import", {joined(lines), joined(changed)}});
        }
    }
    EXPECT_EQ(ImportComparison().firstDifference(cases), "");
}

TEST(PatranDifferential, LinesAboutTheBoundsAreReadAlike) {
    std::vector<std::size_t> lengths;
    for (const std::size_t bound : {224U, 259U, 448U})
        for (std::size_t length = bound - 3; length <= bound + 3; ++length)
            lengths.push_back(length);
    const std::string whole = sample();
    std::vector<NamedCase> cases;
    for (std::size_t at = 0; at < whole.size(); at = whole.find('\n', at) + 1)
        for (const std::size_t length : lengths)
            for (const char filler : {' ', '1', '!'})
                for (const bool crLf : {false, true}) {
                    const std::size_t end = whole.find('\n', at);
                    std::string file = whole;
                    if (end - at < length)
                        file.insert(end, length - (end - at), filler);
                    cases.push_back({std::to_string(length), {crLf ? withCrLf(file) : file}});
                }
    EXPECT_EQ(ImportComparison().firstDifference(cases), "");
}

TEST(PatranDifferential, BinaryJunkIsReadAlike) {
    std::mt19937_64 random(kFirstSeed);
    std::vector<NamedCase> cases;
    for (int c = 0; c < 400; ++c) {
        std::string file(random() % 3000, '\0');
        for (char& byte : file)
            byte = c % 2 == 0 ? static_cast<char>(random() % 256) : "! 12469\n\n"[random() % 9];
        cases.push_back({"junk " + std::to_string(c), {summary(20, 20, 20) + file}});
    }
    EXPECT_EQ(ImportComparison().firstDifference(cases), "");
}

}  // namespace
}  // namespace kvocaeio::test
