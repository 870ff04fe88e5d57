/// What `kvocaeio convert` says of a conversion.
#pragma once

#include <string>

#include "convert/convert.h"
#include "solid_mesh.h"

namespace kvocaeio::host {

/// For a person; `mesh` as it was written.
std::string conversionText(const SolidMesh& mesh, const ConvertOptions& options);

/// For programs; `failure` is empty where nothing failed, and null `mesh` where nothing was
/// written.
std::string conversionJson(const SolidMesh* mesh, const ConvertOptions& options,
                           const std::string& failure);

}  // namespace kvocaeio::host
