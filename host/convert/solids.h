/// Solids of one format written in another by the library's writers.
#pragma once

#include "convert/convert.h"
#include "input_file.h"
#include "solid_mesh.h"

namespace kvocaeio::host {

/// The solids of `file`. Throws `FileError` where there are none to take.
SolidMesh takeSolids(const InputFile& file, const ConvertOptions& options);

/// Writes the target and notes what it cannot hold. Throws `FileError`.
void writeSolids(SolidMesh& mesh, const MeshWriter& writer, const ConvertOptions& options);

}  // namespace kvocaeio::host
