/// What is read of a deck, and what the exported reader keeps of all its decks.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "text/zeroed_array.h"

namespace kvocaeio::nastran {

/// The largest OIDs of a deck; 0 where it has none above.
struct DeckExtent {
    int maxNodeId = 0;
    int maxElemId = 0;
    int maxPropId = 0;
};

inline constexpr std::size_t kNodeWidth = 4;
inline constexpr std::size_t kElemWidth = 9;
inline constexpr std::size_t kSectionWidth = 3;

/// Element OID and eight node OIDs.
using ElementRow = std::span<const int, kElemWidth>;

/// How many nodes of a row count, the last one being repeated up to its end. A solid with fewer
/// corners than its card has shows as what it is.
inline std::size_t nodesOf(ElementRow element) {
    std::size_t nodes = kElemWidth - 1;
    while (nodes > 1 && element[nodes - 1] == element[nodes])
        --nodes;
    if (nodes <= 2)
        return 2;
    return nodes <= 4 ? 4 : nodes <= 6 ? 6 : kElemWidth - 1;
}

/// Property OID, material OID and value of a property card.
using SectionRow = std::array<int, kSectionWidth>;

/// A set of row numbers, of which an empty set takes no memory.
class RowSet {
  public:
    RowSet() = default;
    explicit RowSet(std::size_t rows) : words_((rows + kWordBits - 1) / kWordBits) {}

    bool contains(std::size_t row) const {
        return row / kWordBits < words_.size() &&
               (words_[row / kWordBits] >> row % kWordBits & 1) != 0;
    }
    /// Rows beyond the set's size are not taken.
    void add(std::size_t row) {
        if (row / kWordBits < words_.size())
            words_[row / kWordBits] |= std::uint64_t{1} << row % kWordBits;
    }
    std::size_t count() const {
        std::size_t sum = 0;
        for (const std::uint64_t word : words_)
            sum += static_cast<std::size_t>(std::popcount(word));
        return sum;
    }
    /// The first row that is not in the set.
    std::size_t firstGap() const {
        std::size_t row = 0;
        while (contains(row))
            ++row;
        return row;
    }
    template <class Visit>
    void forEach(const Visit& visit) const {
        for (std::size_t i = 0; i < words_.size(); ++i)
            for (std::uint64_t word = words_[i]; word != 0; word &= word - 1)
                visit(i * kWordBits + static_cast<std::size_t>(std::countr_zero(word)));
    }

  private:
    static constexpr std::size_t kWordBits = 64;

    std::vector<std::uint64_t> words_;
};

/// One deck: rows by OID, made beforehand for its extent, and sections in deck order.
struct DeckTables {
    DeckExtent extent;
    text::ZeroedArray<float> nodes;        // `maxNodeId` rows of `kNodeWidth`
    text::ZeroedArray<int> elements;       // `maxElemId` rows of `kElemWidth`
    text::ZeroedArray<int> sections;       // rows of `kSectionWidth`, at least `sectionCount`
    text::ZeroedArray<int> materialFlags;  // by material OID, up to `sectionCount`
    int sectionCount = 0;                  // property OID of the last property card, 0 without one
    std::size_t sectionRows = 0;           // rows of `sections` that hold a card
    // Rows that are filled, and those of shells, which stay zero. Empty while nobody listens.
    RowSet nodeRows;
    RowSet elementRows;
    RowSet shellRows;
};

struct NastranFileInfo {
    char path[512] = {};
    DeckExtent extent;
    // All decks ever read: what was handed out stays valid for the reader's life.
    std::vector<DeckTables> decks;
};

}  // namespace kvocaeio::nastran
