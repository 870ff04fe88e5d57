/// Elements by their place.
#include "tidy/abaqus/model.h"

#include <algorithm>

namespace kvocaeio::tidy::abaqus {

Scope::ElementRow Scope::elementAt(std::uint32_t place) const {
    const auto after = std::ranges::upper_bound(blocks, place, {}, &Block::first);
    const auto block = static_cast<std::size_t>(after - blocks.begin()) - 1;
    return {block, place - blocks[block].first};
}

}  // namespace kvocaeio::tidy::abaqus
