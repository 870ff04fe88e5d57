/// Rows of the deck's tables, compared.
#include "abaqus/repeats.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>
#include <vector>

namespace kvocaeio::host {

OidRepeats findRepeatedNodes(const DeckTables& tables) {
    return findRepeats(tables.nodeIds, [&](std::size_t first, std::size_t later) {
        const double* place = tables.places[first];
        return std::equal(place, place + 3, tables.places[later]);
    });
}

OidRepeats findRepeatedElements(const DeckTables& tables) {
    std::vector<int> oids;
    std::vector<std::pair<std::size_t, const Section*>> sections;  // by their first element
    for (const Section& section : tables.raw) {
        if (section.nodesPerElement == 0)
            continue;
        sections.emplace_back(oids.size(), &section);
        oids.insert(oids.end(), section.ids, section.ids + section.elements);
    }
    const auto nodesOf = [&](std::size_t row) {
        const auto after = std::ranges::upper_bound(sections, row, {},
                                                    &std::pair<std::size_t, const Section*>::first);
        const auto& [first, section] = *std::prev(after);
        return std::span(section->element(row - first),
                         static_cast<std::size_t>(section->nodesPerElement));
    };
    return findRepeats(oids, [&](std::size_t first, std::size_t later) {
        return std::ranges::equal(nodesOf(first), nodesOf(later));
    });
}

}  // namespace kvocaeio::host
