/// The forms in which a Nastran deck writes its cards, some of which the library does not read as
/// they are meant.
#pragma once

#include <cstddef>
#include <string>

namespace kvocaeio::host {

struct CardForms {
    std::size_t freeCards = 0;  ///< nodes, elements and properties with commas or an asterisk
    std::size_t freeGrids = 0;  ///< those of them that are GRID cards
    // With an OID above 0 in fixed fields of eight columns.
    std::size_t fixedGrids = 0;
    std::size_t fixedElements = 0;
};

/// Counts the cards of the deck at `path`; none where it cannot be opened.
CardForms countCardForms(const std::string& path);

}  // namespace kvocaeio::host
