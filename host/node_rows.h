/// Rows of nodes, looked up by OID.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace kvocaeio::host {

/// A table in pages where the OIDs stand close together, as they do in nearly every deck; else a
/// sorted list.
class NodeRows {
  public:
    /// The OID at each row.
    explicit NodeRows(std::span<const int> oids);

    /// The row of node `oid`, the last one where several have it; -1 for none.
    int find(int oid) const {
        const std::uint64_t distance = distanceOf(oid);
        const auto page = static_cast<std::size_t>(distance / kPageSize);
        if (page < pages_.size())
            return rows_[pages_[page] + static_cast<std::size_t>(distance % kPageSize)];
        return sorted_.empty() ? -1 : findSorted(oid);
    }

  private:
    static constexpr std::size_t kPageSize = 1024;

    // Above any page for an OID below the least.
    std::uint64_t distanceOf(int oid) const {
        return static_cast<std::uint64_t>(std::int64_t{oid} - least_);
    }
    bool takePages(std::span<const int> oids);
    int findSorted(int oid) const;

    std::int64_t least_ = 0;
    std::vector<std::size_t> pages_;           // where each begins in `rows_`
    std::vector<int> rows_;                    // its first page is that of all OIDs without nodes
    std::vector<std::pair<int, int>> sorted_;  // OID, row
};

}  // namespace kvocaeio::host
