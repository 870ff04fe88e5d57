/// Meshes of solids written through the library.
#pragma once

#include <string>
#include <string_view>

#include "solid_mesh.h"

namespace kvocaeio::host {

/// A Nastran deck: nodes and elements numbered from 1, a property for each section, told by a
/// comment. `unit` goes into the header.
bool writeNastran(const SolidMesh& mesh, const std::string& path, const std::string& unit);
inline constexpr std::string_view kNastranEnding = "ENDDATA";
/// Notes what a Nastran deck cannot hold of the mesh, or asks for beside it.
void takeNastranNotes(SolidMesh& mesh);

/// A Patran neutral file, nodes and elements numbered from 1. `unit` has no place in it.
bool writePatran(const SolidMesh& mesh, const std::string& path, const std::string& unit);
inline constexpr std::string_view kPatranEnding =
    "99       0       0       1       0       0       0       080";
void takePatranNotes(SolidMesh& mesh);

}  // namespace kvocaeio::host
