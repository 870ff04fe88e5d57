/// The bodies of a package, kept compactly.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "package/cell_list.h"
#include "package/chunked_list.h"

namespace kvocaeio {

enum class ComponentType : int {
    kNone = 0,
    kSubstrate = 1,
    kDie = 2,
    kInterposer = 3,
    kSpacer = 4,
    kBall = 5,
    kCap = 6,
};

/// One body.
struct ComponentRecord {
    ComponentType type = ComponentType::kNone;
    std::string name;
    std::array<double, 3> center{};  ///< millimetres
    std::array<double, 5> size{};  ///< x, y, z; of a ball the diameter alone; two that nobody sets
    unsigned color = 0;            ///< packed, first colour value in the lowest byte
};

/// What is kept of a body beside its name: a report may have a body on every fourteen bytes.
struct ComponentShape {
    ComponentType type;
    unsigned color;
    std::array<double, 3> center;
    std::array<double, 3> size;
};

/// Bodies in the order in which they were appended.
class ComponentList {
  public:
    std::size_t size() const { return shapes_.size(); }

    /// Names have at most a line's length.
    void append(const ComponentRecord& record) {
        ComponentShape shape{record.type, record.color, record.center, {}};
        std::copy_n(record.size.begin(), shape.size.size(), shape.size.begin());
        names_.append(record.name);
        shapes_.append(shape);  // last, since the shapes count where memory runs out between them
    }

    void clear() {
        names_ = {};
        shapes_.clear();
    }

    /// For an index that is known to be inside, here as below.
    std::string_view name(std::size_t index) const { return names_[index]; }

    const ComponentShape& shape(std::size_t index) const { return shapes_[index]; }
    ComponentShape& shape(std::size_t index) { return shapes_[index]; }

  private:
    CellList names_;
    ChunkedList<ComponentShape> shapes_;
};

}  // namespace kvocaeio
