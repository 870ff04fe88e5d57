/// What of a mesh a page shows: the elements at its surface, and those that findings are about.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "mesh/mesh.h"

namespace kvocaeio::host {

/// Elements of one section, of one kind.
struct ShownGroup {
    std::size_t section;                ///< of the mesh
    std::vector<std::uint32_t> rows;    ///< of the elements in it, ascending
    std::vector<std::uint8_t> outer;    ///< per element a bit for each face that is seen
    std::vector<std::uint8_t> between;  ///< the same of faces that border on other sections
};

/// What a finding is about; both are empty where it is about no place of the mesh.
struct ShownMarks {
    std::vector<ShownGroup> groups;  ///< whole elements, with all faces
    std::vector<int> points;         ///< rows of nodes, ascending
};

/// The elements that have a face at the surface, in the order of the sections.
std::vector<ShownGroup> groupsAtSurface(const Mesh& mesh);

/// What each of the mesh's findings is about, in their order; of each the first thousands.
std::vector<ShownMarks> marksOf(const Mesh& mesh);

/// The nodes that these have, each once, ascending.
std::vector<int> nodesOf(const Mesh& mesh, const std::vector<ShownGroup>& groups,
                         const std::vector<ShownMarks>& marks);

/// All nodes of the group's elements, as rows of the mesh's nodes.
std::vector<int> connectivityOf(const Mesh& mesh, const ShownGroup& group);

}  // namespace kvocaeio::host
