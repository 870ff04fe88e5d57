/// The OIDs that a written mesh has.
#pragma once

#include "solid_mesh.h"

namespace kvocaeio::host {

/// Leaves the mesh's OIDs as they are where a file of `writer` can hold them; else numbers nodes or
/// elements from 1, and remarks it.
void chooseOids(SolidMesh& mesh, const MeshWriter& writer);

}  // namespace kvocaeio::host
