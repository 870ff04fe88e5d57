/// Rows by OID, and rows of property cards up to the number that the last of them names.
#include "nastran/tables.h"

#include <algorithm>
#include <array>
#include <climits>
#include <span>

#include "text/scan.h"

namespace kvocaeio::nastran {

namespace {

// The float's truncation as the processor gives it: what has no int becomes the least one.
int truncate(float value) {
    const bool fits = value >= static_cast<float>(INT_MIN) && value < -static_cast<float>(INT_MIN);
    return fits ? static_cast<int>(value) : INT_MIN;
}

std::array<float, kNodeWidth> nodeRow(const CardNumbers& numbers) {
    const auto& [x, y, z] = numbers.doubles;
    return {static_cast<float>(numbers.ints[0]), static_cast<float>(x), static_cast<float>(y),
            static_cast<float>(z)};
}

std::array<int, kElemWidth> elementRow(const CardRule& rule, const CardNumbers& numbers) {
    std::array<int, kElemWidth> row;
    row[0] = numbers.ints[0];
    const int* const first = &numbers.ints[2];
    std::fill(std::copy_n(first, rule.nodes, row.begin() + 1), row.end(), first[rule.nodes - 1]);
    return row;
}

}  // namespace

void raiseExtent(const CardRule& rule, int first, int second, DeckExtent& extent) {
    if (rule.code == CardCode::kGrid) {
        extent.maxNodeId = std::max(extent.maxNodeId, first);
    } else if (rule.isElement()) {
        extent.maxElemId = std::max(extent.maxElemId, first);
        extent.maxPropId = std::max(extent.maxPropId, second);
    }
}

bool scanOids(std::string_view normalised, int& first, int& second) {
    std::string_view name;
    text::Scan scan(normalised);
    if (!scan.word(name) || !scan.integer(first))
        return false;
    scan.integer(second);
    return true;
}

void raiseExtent(std::string_view normalised, DeckExtent& extent) {
    int first = 0;
    int second = 0;
    if (!scanOids(normalised, first, second))
        return;
    for (const CardRule& rule : kCardRules)
        if (holds(normalised, rule.name))
            raiseExtent(rule, first, second, extent);
}

void storeCard(const CardRule& rule, const CardNumbers& numbers, DeckTables& tables,
               std::vector<SectionRow>& sections) {
    const int oid = numbers.ints[0];
    const std::size_t row = text::asSize(oid) - 1;  // beyond all rows where it is below 1
    if (rule.code == CardCode::kGrid) {
        if (row < text::asSize(tables.extent.maxNodeId))
            std::ranges::copy(nodeRow(numbers), tables.nodes.get() + row * kNodeWidth);
    } else if (rule.nodes > 0) {
        if (row < text::asSize(tables.extent.maxElemId))
            std::ranges::copy(elementRow(rule, numbers), tables.elements.get() + row * kElemWidth);
    } else if (!rule.isElement()) {
        sections.push_back({oid, numbers.ints[1], truncate(numbers.floats[0])});
    }
}

bool isInRow(const CardRule& rule, const CardNumbers& numbers, const DeckTables& tables) {
    const std::size_t row = text::asSize(numbers.ints[0]) - 1;
    return rule.code == CardCode::kGrid
               ? std::ranges::equal(nodeRow(numbers),
                                    std::span(&tables.nodes[row * kNodeWidth], kNodeWidth))
               : std::ranges::equal(elementRow(rule, numbers),
                                    std::span(&tables.elements[row * kElemWidth], kElemWidth));
}

void makeSectionTable(const std::vector<SectionRow>& cards, DeckTables& tables) {
    tables.sectionCount = cards.empty() ? 0 : cards.back()[0];
    // One row more than there are sections, as flags go from 0 and a vector of no rows is not null.
    const std::size_t count = text::asSize(tables.sectionCount);
    tables.sections = text::makeZeroed<int>(count + 1, kSectionWidth);
    tables.materialFlags = text::makeZeroed<int>(count + 1);
    tables.sectionRows = std::min(cards.size(), count);
    int* row = tables.sections.get();
    for (std::size_t i = 0; i < tables.sectionRows; ++i, row += kSectionWidth)
        std::ranges::copy(cards[i], row);
}

int countMaterials(const DeckTables& tables) {
    int different = 0;
    for (const bool counting : {false, true})
        for (std::size_t row = 0; row < tables.sectionRows; ++row) {
            const int material = tables.sections[row * kSectionWidth + 1];
            if (material < 1 || material > tables.sectionCount)
                continue;
            int& flag = tables.materialFlags[text::asSize(material)];
            different += counting && flag == 0 ? 1 : 0;
            flag = counting ? 1 : 0;
        }
    return different;
}

}  // namespace kvocaeio::nastran
