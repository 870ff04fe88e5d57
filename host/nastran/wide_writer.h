/// Nastran decks of any elements, in fixed fields.
#pragma once

#include <string>

namespace kvocaeio::host {

struct ConvertOptions;
struct Mesh;

/// Writes coordinates in fields of sixteen columns and elements in fields of eight, which hold all
/// OIDs, with marks on lines that go on. Notes in the mesh what is left out. Throws `FileError`.
void writeWideNastran(Mesh& mesh, const std::string& path, const ConvertOptions& options);

}  // namespace kvocaeio::host
