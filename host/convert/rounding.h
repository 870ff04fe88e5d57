/// What becomes of coordinates in the digits that a format has for them.
#pragma once

#include <string>
#include <string_view>

#include "convert/number_field.h"
#include "mesh/mesh.h"
#include "solid_mesh.h"

namespace kvocaeio::host {

/// Throws `FileError` where the file would have other elements than the mesh: nodes of one element
/// meet by the rounding, or a coordinate does not fit its field. The message says which unit or
/// scale would do; the mesh's is `unit`. Else remarks by how much coordinates change.
void checkRounding(SolidMesh& mesh, const MeshWriter& writer, const std::string& unit);

/// The same of a mesh whose coordinates were written by `numbers`, in fields of `formName`.
void checkRounding(Mesh& mesh, NumberField& numbers, std::string_view formName);

}  // namespace kvocaeio::host
