/// Ids by pages.
#include "tidy/abaqus/id_index.h"

namespace kvocaeio::tidy::abaqus {

std::uint32_t IdIndex::findInPages(int id) const {
    const std::int64_t number = numberOf(id);
    if (number != latest_) {
        const auto known = rows_.find(number);
        if (known == rows_.end())
            return kNone;
        latest_ = number;
        latestRow_ = known->second;
    }
    return pages_[latestRow_][placeOf(id)];
}

bool IdIndex::addToPages(int id) {
    const std::int64_t number = numberOf(id);
    const auto [known, isNew] =
        rows_.try_emplace(number, static_cast<std::uint32_t>(pages_.size()));
    if (isNew)
        pages_.emplace_back().fill(kNone);
    latest_ = number;
    latestRow_ = known->second;
    pages_[latestRow_][placeOf(id)] = count_++;
    return true;
}

}  // namespace kvocaeio::tidy::abaqus
