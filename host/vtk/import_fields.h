/// What VTK files say of their source, beside its content.
#pragma once

#include <string>

#include "import_findings.h"
#include "vtk/vtk_file.h"

namespace kvocaeio::host {

/// Field data: the source's name, its length unit where `unit` is not empty, how many errors,
/// warnings and notes the library's report on it has, and their texts.
void writeImportFields(VtkFile& file, const ImportFindings& imported, const std::string& source,
                       const std::string& unit);

}  // namespace kvocaeio::host
