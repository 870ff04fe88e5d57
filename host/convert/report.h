/// What `kvocaeio convert` says of a conversion.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "convert/convert.h"
#include "mesh/mesh.h"
#include "package/scene.h"
#include "solid_mesh.h"

namespace kvocaeio::host {

/// What a conversion carried over, and what not.
struct Conversion {
    /// What the target holds, by its names in the plural: two things, and what the second is in.
    std::vector<std::pair<std::string, std::size_t>> sizes;
    std::vector<Note> losses;
    std::vector<Note> remarks;
    ImportFindings imported;
};

Conversion conversionOf(SolidMesh&& mesh);
Conversion conversionOf(Mesh&& mesh);
Conversion conversionOf(PackageScene&& scene);

/// For a person.
std::string conversionText(const Conversion& written, const ConvertOptions& options);

/// For programs, in the layout of docs/convert.schema.json; `written` is null where nothing was
/// written.
std::string conversionJson(const Conversion* written, const ConvertOptions& options,
                           const std::optional<Note>& failure);

}  // namespace kvocaeio::host
