/// The faces of a mesh that can be seen.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "mesh/mesh.h"

namespace kvocaeio::host {

/// Faces of one kind (3, 4, 6 or 8 nodes, as `CellFace` lists them), of the elements of one
/// section.
struct FaceGroup {
    std::size_t section;
    CellKind kind;
    /// Faces of solids on which an element of a section of another name borders, each of which has
    /// the face: hidden as long as both are shown.
    bool isBetweenSections;
    std::vector<int> nodes;               ///< per face all its nodes, as rows of the mesh's nodes
    std::vector<std::uint32_t> elements;  ///< per face the row of its element in the section

    std::size_t faces() const { return elements.size(); }
};

/// The faces of solids that no other solid has, or only one of a section of another name; shells
/// and faces of loads and surfaces as they are; no lines. Faces are the same where their corners
/// are. Groups are in the order of the sections; none is empty.
std::vector<FaceGroup> outerFaces(const Mesh& mesh);

}  // namespace kvocaeio::host
