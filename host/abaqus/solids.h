/// The normalised solids of an Abaqus deck, for another format.
#pragma once

#include <string>

#include "platform.h"
#include "solid_mesh.h"

namespace kvocaeio::host {

/// Throws `FileError` where there is no mesh to take.
SolidMesh takeAbaqusSolids(const std::string& path, PrintTarget progress);

}  // namespace kvocaeio::host
