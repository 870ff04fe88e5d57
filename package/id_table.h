/// A table of a 3DI file: entries by id, with empty ones for the ids that the file leaves out.
#pragma once

#include <cstddef>
#include <map>
#include <utility>

#include "package/chunked_list.h"

namespace kvocaeio::package {

/// Ids run from 0 up to this one, which is none any more.
inline constexpr int kTableCapacity = 16'777'216;

/// The memory is that of the rows which are really there, however large their ids.
template <class T>
class IdTable {
  public:
    std::size_t size() const { return size_; }
    void resize(std::size_t size) { size_ = size; }

    /// Sets the entry of `id`; false where it replaces one. The table's size is the caller's
    /// affair.
    bool set(int id, T value) {
        const std::size_t before = rows_.size();
        rows_.insert_or_assign(rows_.end(), id, std::move(value));
        return rows_.size() != before;
    }

    void clear() {
        rows_.clear();
        size_ = 0;
    }

    /// Whether the table reaches to `id`, with a row of this id or without.
    bool reaches(int id) const { return id >= 0 && static_cast<std::size_t>(id) < size_; }

    /// The row of `id`, null without one.
    const T* find(int id) const {
        const auto row = rows_.find(id);
        return row == rows_.end() ? nullptr : &row->second;
    }

    /// The entry of `id`; throws the error of `throwBadSubscript` for an id outside the table.
    const T& at(int id) const {
        if (!reaches(id))
            throwBadSubscript();
        const T* const row = find(id);
        return row == nullptr ? absent_ : *row;
    }

    /// The rows that are there, by ascending id.
    const std::map<int, T>& rows() const { return rows_; }

  private:
    std::map<int, T> rows_;
    std::size_t size_ = 0;
    T absent_{};
};

}  // namespace kvocaeio::package
