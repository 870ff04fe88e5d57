/// The bodies of a package, kept compactly.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "package/cell_list.h"
#include "package/chunked_list.h"

namespace kvocaeio::package {

enum class ComponentType : int {
    kNone = 0,
    kSubstrate = 1,
    kDie = 2,
    kInterposer = 3,
    kSpacer = 4,
    kBall = 5,
    kCap = 6,
};

/// What is kept of a body beside its name: a report may have a body on every fourteen bytes.
struct ComponentShape {
    ComponentType type = ComponentType::kNone;
    unsigned color = 0;              ///< packed, first colour value in the lowest byte
    std::array<double, 3> center{};  ///< millimetres
    std::array<double, 3> size{};    ///< x, y, z; of a ball the first is the diameter
};

/// One body.
struct ComponentRecord : ComponentShape {
    std::string name;
};

/// Bodies in the order in which they were appended.
class ComponentList {
  public:
    std::size_t size() const { return shapes_.size(); }

    /// Names have at most a line's length.
    void append(const ComponentRecord& record) {
        names_.append(record.name);
        shapes_.append(record);  // last, since the shapes count where memory runs out between them
    }

    /// For an index that is known to be inside, here as below.
    std::string_view name(std::size_t index) const { return names_[index]; }

    const ComponentShape& shape(std::size_t index) const { return shapes_[index]; }
    ComponentShape& shape(std::size_t index) { return shapes_[index]; }

  private:
    CellList names_;
    ChunkedList<ComponentShape> shapes_;
};

}  // namespace kvocaeio::package
