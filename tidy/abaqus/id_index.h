/// From the numbers of nodes or elements to what is known of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <unordered_map>
#include <vector>

namespace kvocaeio::tidy::abaqus {

/// A map from ids to rows, which are counted from 0 in the order in which ids are added. Memory is
/// in proportion to the number of ids however far apart they are.
class IdIndex {
  public:
    static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

    /// The row of an id; `kNone` where it has none.
    std::uint32_t find(int id) const {
        const std::int64_t inRun = std::int64_t{id} - first_;
        if (inRun >= 0 && inRun < runCount_)
            return static_cast<std::uint32_t>(inRun);
        return pages_.empty() ? kNone : findInPages(id);
    }
    /// Adds an id. False, with nothing changed, where it is there already.
    bool add(int id) {
        // Most decks number one by one, which takes no memory at all.
        if (pages_.empty() && (count_ == 0 || std::int64_t{id} - first_ == runCount_)) {
            first_ = count_ == 0 ? id : first_;
            ++runCount_;
            ++count_;
            return true;
        }
        return find(id) == kNone && addToPages(id);
    }
    std::uint32_t count() const { return count_; }

  private:
    static constexpr int kPageBits = 5;
    using Page = std::array<std::uint32_t, std::size_t{1} << kPageBits>;

    static std::int64_t numberOf(int id) { return std::int64_t{id} >> kPageBits; }
    static std::size_t placeOf(int id) {
        return static_cast<std::size_t>(static_cast<unsigned>(id) & ((1U << kPageBits) - 1));
    }
    std::uint32_t findInPages(int id) const;
    bool addToPages(int id);

    int first_ = 0;  // of the ids that come one by one, from row 0
    std::int64_t runCount_ = 0;
    std::uint32_t count_ = 0;
    std::unordered_map<std::int64_t, std::uint32_t> rows_;  // of pages
    std::vector<Page> pages_;
    mutable std::int64_t latest_ = std::numeric_limits<std::int64_t>::max();
    mutable std::uint32_t latestRow_ = 0;
};

}  // namespace kvocaeio::tidy::abaqus
