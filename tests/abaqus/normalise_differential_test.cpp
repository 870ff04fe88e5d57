/// The library's normalisation against a plain second one, on random small decks.
#include <stdexcept>

#include "abaqus/normalise_deck.h"
#include "abaqus/normalise_generator.h"
#include "abaqus/normalise_naive.h"

namespace kvocaeio::test {
namespace {

constexpr unsigned kFirstSeed = 1;
#if defined(_WIN32) || !defined(NDEBUG)
// The first of the same models: Wine takes twenty times as long over their files, and a sanitizer
// seven times.
constexpr unsigned kModels = 2400;
#else
constexpr unsigned kModels = 24000;
#endif

Sections plain(const std::vector<RawModel::Block>& blocks) {
    Sections sections;
    for (const RawModel::Block& block : blocks) {
        SortedSection section{block.elset, block.geometry, block.width, {}};
        for (const RawModel::Element& element : block.elements)
            section.elements.push_back(element.nodes);
        sections.push_back(section);
    }
    return sections;
}

/// As `rawSectionsOf` gives them, the OIDs in front.
Sections plainRaw(const RawModel& model) {
    Sections sections = plain(model.blocks);
    for (std::size_t s = 0; s < sections.size(); ++s)
        for (std::size_t row = 0; row < sections[s].elements.size(); ++row) {
            std::vector<int>& element = sections[s].elements[row];
            element.insert(element.begin(), model.blocks[s].elements[row].oid);
        }
    return sections;
}

void expectSameNodes(CKVOAbaqusReader& reader, const RawModel& model,
                     const NaiveNormalisation& naive) {
    for (int oid = -2; oid < 25; ++oid) {
        double coord[3] = {1e9, 1e9, 1e9};
        CKVOAbaqusReader::NodeData node{-99, coord};
        const auto row = naive.nodeRow(oid);
        ASSERT_EQ(reader.GetNodeDataByOID(oid, &node), row.has_value()) << "node " << oid;
        if (!row)
            continue;
        const auto& expected = model.nodes[static_cast<std::size_t>(*row)].coord;
        EXPECT_EQ(node.id, oid);
        EXPECT_EQ((std::array<double, 3>{coord[0], coord[1], coord[2]}), expected)
            << "node " << oid;
    }
}

void expectSameElements(CKVOAbaqusReader& reader, const RawModel& model,
                        const NaiveNormalisation& naive) {
    for (int oid = -2; oid < 28; ++oid) {
        int firstNode = -99;
        CKVOAbaqusReader::ElemData element{-99, -99, &firstNode};
        const auto place = naive.elementPlace(oid);
        const bool found = reader.GetElemNodesByOID(oid, &element);
        ASSERT_EQ(found, place.has_value()) << "element " << oid;
        if (!found)
            continue;
        const RawModel::Block& block = model.blocks[static_cast<std::size_t>(place->first)];
        const auto row = static_cast<std::size_t>(place->second);
        EXPECT_EQ(element.id, oid);
        EXPECT_EQ(element.nodeNum, block.width) << "element " << oid;
        const bool hasNode = row < block.elements.size() && block.width > 0;
        EXPECT_EQ(firstNode, hasNode ? block.elements[row].nodes[0] : -99) << "element " << oid;
    }
}

template <class Sort>
std::string errorOf(Sort sort) {
    try {
        sort();
    } catch (const std::length_error& error) {
        return error.what();
    }
    return "";
}

void expectSameSort(Deck& deck, NaiveNormalisation& naive, bool logged) {
    std::filesystem::remove(deck.logFile());
    const std::string error = errorOf([&] { naive.sort(); });
    ASSERT_EQ(errorOf([&] { deck.sort(); }), error);
    logged = logged && error.empty() && !naive.printed.empty();
    EXPECT_EQ(deck.printed, naive.printed + (logged ? deck.logLine() : ""));
    EXPECT_EQ(deck.solids(), plain(naive.solids));
    EXPECT_EQ(deck.shells(), plain(naive.shells));
    EXPECT_EQ(std::filesystem::exists(deck.logFile()), logged);
    EXPECT_EQ(deck.log(), logged ? naive.log() : "");
}

TEST(NormaliseDifferential, RandomModels) {
    const TempFolder withDebug;
    const TempFolder withoutDebug;
    withDebug.makeFolder("debug");
    for (unsigned seed = kFirstSeed; seed < kFirstSeed + kModels; ++seed) {
        const RandomDeck random = randomDeck(seed);
        SCOPED_TRACE("seed " + std::to_string(seed) + ", deck:\n" + random.text);
        const bool debug = seed % 8 != 0;
        const TempFolder& folder = debug ? withDebug : withoutDebug;
        // Some file systems take longer to write over a file than to make it anew.
        for (const char* name : {"deck.inp", "debug/InputAbaqus.log", "debug/SortData.log"})
            std::filesystem::remove(folder.path() / name);
        Deck deck(folder, random.text);
        NaiveNormalisation naive(random.model);
        ASSERT_EQ(rawSectionsOf(deck.reader), plainRaw(random.model));
        for (int call = seed % 4 == 0 ? 2 : 1; call > 0; --call)
            expectSameSort(deck, naive, debug);
        expectSameNodes(deck.reader, random.model, naive);
        expectSameElements(deck.reader, random.model, naive);
        EXPECT_EQ(rawSectionsOf(deck.reader), plainRaw(random.model));
        if (HasFailure())
            return;
    }
}

}  // namespace
}  // namespace kvocaeio::test
