/// Abaqus decks of any elements.
#pragma once

#include <string>

namespace kvocaeio::host {

struct ConvertOptions;
struct Mesh;

/// Writes nodes, elements by section, sections, and the faces of loads and surfaces as surfaces.
/// There is no material and no step. Notes in the mesh what is left out. Throws `FileError`.
void writeAbaqusDeck(Mesh& mesh, const std::string& path, const ConvertOptions& options);

}  // namespace kvocaeio::host
