/// Rows of the deck's tables, compared.
#include "abaqus/repeats.h"

#include <algorithm>

namespace kvocaeio::host {

OidRepeats findRepeatedNodes(const DeckTables& tables) {
    return findRepeats(tables.nodeIds, [&](std::size_t first, std::size_t later) {
        const double* place = tables.places[first];
        return std::equal(place, place + 3, tables.places[later]);
    });
}

OidRepeats findRepeatedElements(const DeckTables& tables) {
    std::vector<int> oids;
    std::vector<std::span<const int>> nodes;
    for (const Section& section : tables.raw) {
        if (section.nodesPerElement == 0)
            continue;
        oids.insert(oids.end(), section.ids, section.ids + section.elements);
        for (std::size_t row = 0; row < section.elements; ++row)
            nodes.emplace_back(section.element(row),
                               static_cast<std::size_t>(section.nodesPerElement));
    }
    return findRepeats(oids, [&](std::size_t first, std::size_t later) {
        return std::ranges::equal(nodes[first], nodes[later]);
    });
}

}  // namespace kvocaeio::host
