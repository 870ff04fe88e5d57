/// Nastran cards in the forms that the library does not read as they are meant.
#pragma once

#include <cstddef>
#include <string>

namespace kvocaeio::host {

struct FreeFieldCards {
    std::size_t cards = 0;  ///< nodes, elements and properties with commas or an asterisk
    std::size_t grids = 0;  ///< those of them that are GRID cards
};

/// Counts such cards of the deck at `path`; none where it cannot be opened.
FreeFieldCards countFreeFieldCards(const std::string& path);

}  // namespace kvocaeio::host
