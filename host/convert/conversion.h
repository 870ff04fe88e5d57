/// What a conversion has written, and what there is to say of it.
#pragma once

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "import_findings.h"
#include "mesh/mesh.h"
#include "note.h"
#include "package/scene.h"
#include "solid_mesh.h"

namespace kvocaeio::host {

struct Conversion {
    /// Such as 12 "nodes".
    std::vector<std::pair<std::string_view, std::size_t>> written;
    std::vector<Note> losses;
    std::vector<Note> remarks;
    ImportFindings imported;
};

/// What there is to say of `content`, as it was written; takes its notes.
Conversion conversionOf(SolidMesh content);
Conversion conversionOf(Mesh content);
Conversion conversionOf(PackageScene content);

}  // namespace kvocaeio::host
