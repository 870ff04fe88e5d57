/// A list indexed by property id, holes included.
#pragma once

#include <algorithm>
#include <cstddef>
#include <map>

namespace kvocaeio::patran {

/// Property ids run from 0 up to this one, which is none any more.
inline constexpr int kPropertyIdEnd = 16'777'216;

/// Takes memory for the entries that have been set, however large their ids.
template <class Value>
class PropertyList {
  public:
    std::size_t size() const { return size_; }

    /// Makes `id` a valid index; new entries are 0.
    void reach(int id) { size_ = std::max(size_, static_cast<std::size_t>(id) + 1); }
    void set(int id, Value value) { entries_.insert_or_assign(id, value); }

    /// For an id from 0 to below the size.
    Value at(int id) const {
        const auto entry = entries_.find(id);
        return entry == entries_.end() ? Value{} : entry->second;
    }

    bool isSet(int id) const { return entries_.contains(id); }

    void clear() {
        entries_.clear();
        size_ = 0;
    }

  private:
    std::map<int, Value> entries_;
    std::size_t size_ = 0;
};

}  // namespace kvocaeio::patran
