/// Where the node ids of a file lead.
#pragma once

#include <cstddef>

#include "text/zeroed_array.h"

namespace kvocaeio::patran {

/// Node index by node id, for ids from 0 to the highest one; 0 for those that no node has.
class IdMap {
  public:
    IdMap() = default;
    explicit IdMap(int maxId)
        : indices_(text::makeZeroed<int>(text::asSize(maxId) + 1)), maxId_(maxId) {}

    bool holds(int id) const { return id >= 0 && id <= maxId_; }
    /// An id outside the map is ignored.
    void set(int id, int index) {
        if (!holds(id))
            return;
        indices_[static_cast<std::size_t>(id)] = index;
        if (index == 0)
            idOfFirst_ = id;
    }
    /// 0, too, for an id outside the map.
    int at(int id) const { return holds(id) ? indices_[static_cast<std::size_t>(id)] : 0; }

    bool isDefined(int id) const { return holds(id) && (at(id) != 0 || id == idOfFirst_); }

    /// Hands the array over, after which the map must not be used.
    int* release() { return indices_.release(); }

  private:
    text::ZeroedArray<int> indices_;
    int maxId_ = -1;
    int idOfFirst_ = -1;  // of the node with index 0
};

}  // namespace kvocaeio::patran
