/// The solids of an Abaqus deck, for another format.
#pragma once

#include <string>

#include "formats.h"
#include "solid_mesh.h"

namespace kvocaeio::host {

/// Those that the deck lists, with their OIDs, or those of the normalised mesh. Throws `FileError`
/// where there is no mesh to take, and where OIDs are defined twice with different content.
SolidMesh takeAbaqusSolids(const std::string& path, const MeshRequest& request);

}  // namespace kvocaeio::host
