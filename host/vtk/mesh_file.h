/// Meshes as VTK files (.vtu).
#pragma once

#include <string>

#include "convert/convert.h"
#include "mesh/mesh.h"

namespace kvocaeio::host {

/// Every element as it is, in VTK's order of nodes. docs/convert.md tells the arrays. Throws
/// `FileError` where the file cannot be written.
void writeVtkMesh(Mesh& mesh, const std::string& path, const ConvertOptions& options);

}  // namespace kvocaeio::host
