/// The mesh of an Abaqus deck, with all that the reader returns of it.
#pragma once

#include <string>

#include "formats.h"
#include "mesh/mesh.h"

namespace kvocaeio::host {

/// The elements that the deck lists, with the faces of its loads and surfaces, or the normalised
/// mesh. Throws `FileError` where there is no mesh to take, and where OIDs are defined twice with
/// different content.
Mesh takeAbaqusMesh(const std::string& path, const MeshRequest& request);

}  // namespace kvocaeio::host
