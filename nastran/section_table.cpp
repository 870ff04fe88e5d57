/// Rows of property cards, up to the number that the last of them names.
#include "nastran/section_table.h"

#include <algorithm>

namespace kvocaeio::nastran {

void makeSectionTable(std::span<const SectionRow> cards, DeckTables& tables) {
    tables.sectionCount = cards.empty() ? 0 : cards.back().propertyId;
    // One row more than there are sections, as flags go from 0 and a vector of no rows is not null.
    const std::size_t count = text::asSize(tables.sectionCount);
    tables.sections = text::makeZeroed<int>(count + 1, kSectionWidth);
    tables.materialFlags = text::makeZeroed<int>(count + 1);
    tables.sectionRows = std::min(cards.size(), count);
    int* row = tables.sections.get();
    for (const SectionRow& card : cards.first(tables.sectionRows)) {
        *row++ = card.propertyId;
        *row++ = card.materialId;
        *row++ = card.value;
    }
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
