/// The OIDs that a written mesh has.
#pragma once

#include "mesh/mesh.h"
#include "solid_mesh.h"

namespace kvocaeio::host {

/// Leaves the mesh's OIDs as they are where a file of `writer` can hold them; else numbers nodes or
/// elements from 1, and remarks it.
void chooseOids(SolidMesh& mesh, const MeshWriter& writer);

/// Gives each node and element an OID of its own from 1 to `largest`: those of the source where
/// that can be, and elements without one, such as faces of loads, the next ones. Nodes that no
/// element has and that are in the way of that leave the mesh.
void chooseOids(Mesh& mesh, int largest);

}  // namespace kvocaeio::host
