/// From the numbers of nodes or elements to what is known of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <unordered_map>
#include <vector>

namespace kvocaeio::tidy::abaqus {

/// A map from ids to rows. Ids of a deck mostly stand close together, so they are kept by pages;
/// memory is in proportion to their number however far apart they are.
class IdIndex {
  public:
    static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

    /// The row of an id; `kNone` where it has none.
    std::uint32_t find(int id) const {
        const Page* const page = pageOf(id);
        return page == nullptr ? kNone : (*page)[placeOf(id)];
    }
    /// The row of an id, to be set; `kNone` where it is new.
    std::uint32_t& operator[](int id) {
        const auto number = numberOf(id);
        if (number != latest_) {
            const auto [known, isNew] =
                rows_.try_emplace(number, static_cast<std::uint32_t>(pages_.size()));
            if (isNew)
                pages_.emplace_back().fill(kNone);
            latest_ = number;
            latestRow_ = known->second;
        }
        return pages_[latestRow_][placeOf(id)];
    }

  private:
    static constexpr int kPageBits = 5;
    using Page = std::array<std::uint32_t, std::size_t{1} << kPageBits>;

    static std::int64_t numberOf(int id) { return std::int64_t{id} >> kPageBits; }
    static std::size_t placeOf(int id) {
        return static_cast<std::size_t>(static_cast<unsigned>(id) & ((1U << kPageBits) - 1));
    }
    const Page* pageOf(int id) const {
        const auto number = numberOf(id);
        if (number != found_) {
            const auto known = rows_.find(number);
            if (known == rows_.end())
                return nullptr;
            found_ = number;
            foundRow_ = known->second;
        }
        return &pages_[foundRow_];
    }

    static constexpr std::int64_t kNoPage = std::numeric_limits<std::int64_t>::max();
    std::unordered_map<std::int64_t, std::uint32_t> rows_;
    std::vector<Page> pages_;
    std::int64_t latest_ = kNoPage;
    std::uint32_t latestRow_ = 0;
    mutable std::int64_t found_ = kNoPage;
    mutable std::uint32_t foundRow_ = 0;
};

}  // namespace kvocaeio::tidy::abaqus
