/// Runs of ids, and elements by their place.
#include "tidy/abaqus/model.h"

#include <algorithm>
#include <utility>

namespace kvocaeio::tidy::abaqus {

void IdSet::add(int instance, int id) {
    if (!runs.empty()) {
        IdRun& run = runs.back();
        const std::int64_t distance = std::int64_t{id} - run.last;
        const bool isSingle = run.first == run.last;
        if (run.instance == instance && std::in_range<int>(distance) && distance > 0 &&
            (isSingle || distance == run.step)) {
            run.step = static_cast<int>(distance);
            run.last = id;
            return;
        }
    }
    runs.push_back({instance, id, id, 1});
}

Scope::ElementRow Scope::elementAt(std::uint32_t place) const {
    const auto after = std::ranges::upper_bound(blocks, place, {}, &Block::first);
    const Block& block = *(after - 1);
    return {&block, place - block.first};
}

}  // namespace kvocaeio::tidy::abaqus
