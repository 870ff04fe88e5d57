/// Meshes of solids as Nastran decks.
#pragma once

#include "solid_mesh.h"

namespace kvocaeio::host {

/// Nodes and elements numbered from 1, a property for each section, told by a comment. The unit
/// goes into the header.
extern const MeshWriter kNastranWriter;

}  // namespace kvocaeio::host
