/// The map from an OID to what stands behind it, indexed by the OID itself.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

namespace kvocaeio::abaqus {

/// Maps 0 to a largest OID to values; an OID that was never set gives `Value()`.
///
/// The values lie in pages that are made where an OID is set, so that gaps in a deck's numbering
/// cost next to nothing: a directory of two megabytes covers all of int. OIDs scattered so thinly
/// that their pages would hold almost nothing else are kept in one sorted list instead.
template <class Value>
class OidMap {
  public:
    /// Number of OIDs covered: the largest plus one, or 0.
    std::size_t size() const { return size_; }

    /// Value of `oid`, which must be below `size()`.
    Value operator[](std::size_t oid) const {
        if (!scattered_.empty())
            return findScattered(oid);
        return pages_[place(oid)];
    }

    /// Whether the map covers `oid`; it never covers a negative one.
    bool covers(int oid) const { return oid >= 0 && static_cast<std::size_t>(oid) < size_; }

    /// Value of any `oid` at all: `Value()` for one that is not covered.
    Value find(int oid) const {
        return covers(oid) ? (*this)[static_cast<std::size_t>(oid)] : Value();
    }

    /// Calls `use(lookUp)`, where `lookUp(oid)` gives what `find` gives, at less cost: for loops
    /// over large tables.
    template <class Use>
    void lookUpMany(const Use& use) const {
        if (!scattered_.empty())
            return use([this](int oid) { return find(oid); });
        use([directory = directory_.data(), pages = pages_.data(), size = size_](int oid) {
            const auto at = static_cast<std::size_t>(oid);  // beyond `size` for a negative one
            return at < size ? pages[placeIn(directory, at)] : Value();
        });
    }

    /// The first OID from `oid` on that may have been set, or `end` (at most `size()`): all before
    /// it give `Value()`. Leaps over whole empty pages, so that a walk need not visit large gaps.
    std::size_t skipGap(std::size_t oid, std::size_t end) const {
        if (!scattered_.empty()) {
            const auto next = std::ranges::lower_bound(scattered_, oid, {}, &Entry::first);
            return next != scattered_.end() ? std::min<std::size_t>(next->first, end) : end;
        }
        const std::size_t page = oid >> kPageBits;
        if (oid >= end || directory_[page] != 0)
            return oid;
        const auto next = std::upper_bound(usedPages_.begin(), usedPages_.end(), page);
        return next != usedPages_.end() ? std::min(std::size_t{*next} << kPageBits, end) : end;
    }

    /// Fills the map anew. `forEachEntry(visit)` calls `visit(oid, value)` for each entry in order,
    /// the same entries at each of its several calls; negative OIDs are left out, and of entries
    /// with the same OID the last one stays. When memory runs out the map stays as it was.
    template <class ForEachEntry>
    void assign(const ForEachEntry& forEachEntry) {
        int largest = 0;
        std::size_t entries = 0;
        forEachEntry([&](int oid, const Value&) {
            largest = std::max(largest, oid);
            ++entries;
        });
        OidMap made;
        made.size_ = static_cast<std::size_t>(largest) + 1;
        made.directory_.resize((made.size_ >> kPageBits) + 1);
        std::size_t pages = 1;  // page 0 stays empty and serves all OIDs without a page
        forEachEntry([&](int oid, const Value&) {
            if (oid < 0 || made.directory_[pageOf(oid)] != 0)
                return;
            made.directory_[pageOf(oid)] = static_cast<std::uint32_t>(pages++);
            made.usedPages_.push_back(static_cast<std::uint32_t>(pageOf(oid)));
        });
        std::sort(made.usedPages_.begin(), made.usedPages_.end());
        if ((pages << kPageBits) <= kFreeValues + kValuesPerEntry * entries) {
            made.pages_.resize(pages << kPageBits);
            forEachEntry([&](int oid, const Value& value) {
                if (oid >= 0)
                    made.pages_[made.place(static_cast<std::size_t>(oid))] = value;
            });
        } else {
            made.directory_ = {};
            made.usedPages_ = {};
            made.assignScattered(forEachEntry, entries);
        }
        *this = std::move(made);
    }

  private:
    static constexpr int kPageBits = 12;
    static constexpr std::size_t kPageMask = (std::size_t{1} << kPageBits) - 1;
    // Pages are worth their memory up to this many values in all, and this many per entry.
    static constexpr std::size_t kFreeValues = std::size_t{1} << 18;
    static constexpr std::size_t kValuesPerEntry = 4;

    static std::size_t pageOf(int oid) { return static_cast<std::size_t>(oid) >> kPageBits; }

    static std::size_t placeIn(const std::uint32_t* directory, std::size_t oid) {
        return (std::size_t{directory[oid >> kPageBits]} << kPageBits) + (oid & kPageMask);
    }
    std::size_t place(std::size_t oid) const { return placeIn(directory_.data(), oid); }

    template <class ForEachEntry>
    void assignScattered(const ForEachEntry& forEachEntry, std::size_t entries) {
        scattered_.reserve(entries);
        forEachEntry([&](int oid, const Value& value) {
            if (oid >= 0)
                scattered_.emplace_back(static_cast<std::uint32_t>(oid), value);
        });
        std::ranges::stable_sort(scattered_, {}, &Entry::first);
    }

    Value findScattered(std::size_t oid) const {
        const auto behind = std::ranges::upper_bound(scattered_, oid, {}, &Entry::first);
        const bool found = behind != scattered_.begin() && std::prev(behind)->first == oid;
        return found ? std::prev(behind)->second : Value();
    }

    using Entry = std::pair<std::uint32_t, Value>;
    std::size_t size_ = 0;
    std::vector<std::uint32_t> directory_;  // page number by OID / page size
    std::vector<std::uint32_t> usedPages_;  // places in it that have a page, ascending
    std::vector<Value> pages_;
    std::vector<Entry> scattered_;  // by OID; of one OID the last entry counts
};

/// Fills the map of each OID's row in `oids`.
inline void assignRows(OidMap<int>& rowOfOid, const std::vector<int>& oids) {
    rowOfOid.assign([&oids](const auto& visit) {
        int row = 0;
        for (const int oid : oids)
            visit(oid, row++);
    });
}

}  // namespace kvocaeio::abaqus
