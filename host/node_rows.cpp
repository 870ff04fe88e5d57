/// The choice between table and list, and the look-up in the list.
#include "node_rows.h"

#include <algorithm>
#include <iterator>

namespace kvocaeio::host {

NodeRows::NodeRows(std::span<const int> oids) {
    if (oids.empty() || takePages(oids))
        return;
    sorted_.reserve(oids.size());
    for (const int oid : oids)
        sorted_.emplace_back(oid, static_cast<int>(sorted_.size()));
    std::sort(sorted_.begin(), sorted_.end());
}

// False where the table would take seven times the room of the list.
bool NodeRows::takePages(std::span<const int> oids) {
    const auto [least, largest] = std::minmax_element(oids.begin(), oids.end());
    least_ = *least;
    const std::size_t room = 12 * oids.size() + 2 * kPageSize;
    const auto pageCount = static_cast<std::size_t>(distanceOf(*largest) / kPageSize) + 1;
    if (pageCount > oids.size())
        return false;
    pages_.resize(pageCount);
    std::size_t used = kPageSize;
    for (const int oid : oids) {
        std::size_t& page = pages_[static_cast<std::size_t>(distanceOf(oid) / kPageSize)];
        if (page != 0)
            continue;
        page = used;
        used += kPageSize;
        if (used > room) {
            pages_.clear();
            return false;
        }
    }
    rows_.assign(used, -1);
    int row = 0;
    for (const int oid : oids) {
        const std::uint64_t distance = distanceOf(oid);
        rows_[pages_[static_cast<std::size_t>(distance / kPageSize)] +
              static_cast<std::size_t>(distance % kPageSize)] = row++;
    }
    return true;
}

int NodeRows::findSorted(int oid) const {
    const auto after = std::upper_bound(
        sorted_.begin(), sorted_.end(), oid,
        [](int wanted, const std::pair<int, int>& node) { return wanted < node.first; });
    const bool found = after != sorted_.begin() && std::prev(after)->first == oid;
    return found ? std::prev(after)->second : -1;
}

}  // namespace kvocaeio::host
