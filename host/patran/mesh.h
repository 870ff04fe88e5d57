/// The mesh of a Patran neutral file, as `CPatranReader` returns it.
#pragma once

#include <string>

#include "formats.h"
#include "mesh/mesh.h"

namespace kvocaeio::host {

/// Throws `FileError` where there is no mesh to take.
Mesh takePatranMesh(const std::string& path, const MeshRequest& request);

}  // namespace kvocaeio::host
