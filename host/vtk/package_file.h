/// Chip packages as VTK files (.vtp).
#pragma once

#include <string>

#include "convert/convert.h"
#include "package/scene.h"

namespace kvocaeio::host {

/// Bodies as closed surfaces, wires as polylines. docs/convert.md tells the arrays. Throws
/// `FileError` where the file cannot be written.
void writeVtkPackage(PackageScene& scene, const std::string& path, const ConvertOptions& options);

}  // namespace kvocaeio::host
