/// The solids of a Patran neutral file, as `CPatranReader` returns them, for another format.
#pragma once

#include <string>

#include "formats.h"
#include "solid_mesh.h"

namespace kvocaeio::host {

/// Throws `FileError` where there is no mesh to take.
SolidMesh takePatranSolids(const std::string& path, const MeshRequest& request);

}  // namespace kvocaeio::host
