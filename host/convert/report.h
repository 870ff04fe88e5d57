/// What `kvocaeio convert` says of a conversion.
#pragma once

#include <optional>
#include <string>

#include "convert/convert.h"
#include "solid_mesh.h"

namespace kvocaeio::host {

/// For a person; `mesh` as it was written.
std::string conversionText(const SolidMesh& mesh, const ConvertOptions& options);

/// For programs, in the layout of docs/convert.schema.json; `mesh` is null where nothing was
/// written.
std::string conversionJson(const SolidMesh* mesh, const ConvertOptions& options,
                           const std::optional<Note>& failure);

}  // namespace kvocaeio::host
