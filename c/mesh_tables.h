/// Nodes and sections as a host gets them, whatever the format: pointers into the tables of an
/// import, and what is made beside these because the import does not keep it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>
#include <vector>

#include "text/zeroed_array.h"
#include <kvocaeio/kvocaeio.h>

namespace kvocaeio::c_interface {

static_assert(std::is_same_v<int, std::int32_t>, "tables are handed out as they are");

inline constexpr int kNoRow = -1;

/// From OIDs of nodes to their rows.
class NodeRows {
  public:
    virtual ~NodeRows() = default;
    /// Sets `rows`, as many as there are OIDs; `kNoRow` for an OID that no node has.
    virtual void find(std::span<const int> oids, int* rows) const = 0;
};

/// A section, and its connectivity in the forms that are there.
struct SectionTable {
    kvocaeio_section section{};
    const int* oids = nullptr;
    const int* rows = nullptr;
    text::ZeroedArray<int> made;  ///< whichever of the two was asked for and not there
};

/// One without a name, whose elements have these OIDs and nodes.
SectionTable sectionOf(std::int32_t geometry, std::size_t nodesPerElement,
                       std::span<const int> oids, const int* nodes);

/// All that a mesh hands out.
struct MeshTables {
    kvocaeio_nodes nodes{};
    std::array<std::vector<SectionTable>, 3> sections;  ///< by `KVOCAEIO_SECTIONS` and so on
    const NodeRows* nodeRows = nullptr;
};

/// The connectivity of a section with elements that have nodes, made where it is not there yet.
/// Throws `std::bad_alloc`.
const int* connectivityOf(const MeshTables& mesh, SectionTable& table, bool asRows);

/// The shape of elements with this number of nodes.
std::int32_t kindOf(std::int32_t geometry, std::size_t nodes);

}  // namespace kvocaeio::c_interface
