/// Solids on their way to the library's writers.
#pragma once

#include "convert/convert.h"
#include "formats.h"
#include "input_file.h"
#include "replacement_file.h"
#include "solid_mesh.h"

namespace kvocaeio::host {

/// The solids of the source, which is of `format`, tidied where it needs that. Throws `FileError`
/// where there are none, and where they would not be those of the source.
SolidMesh takeSolids(const InputFile& source, const Format& format, const ConvertOptions& options);

/// Writes the solids, whose length unit is `unit`, and notes what the file does not hold. Throws
/// `FileError`.
void writeSolids(SolidMesh& mesh, const MeshWriter& writer, const ReplacementFile& file,
                 const std::string& unit);

}  // namespace kvocaeio::host
