/// The mesh of a Nastran deck.
#pragma once

#include <string>

#include "formats.h"
#include "mesh/mesh.h"

namespace kvocaeio::host {

/// The reader does not return which property an element has: there is a section for each kind.
/// Throws `FileError` where there is no mesh to take.
Mesh takeNastranMesh(const std::string& path, const MeshRequest& request);

}  // namespace kvocaeio::host
