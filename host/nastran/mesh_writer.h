/// Meshes of solids as Nastran decks.
#pragma once

#include "solid_mesh.h"

namespace kvocaeio::host {

/// A property for each section, numbered from 1 and told by a comment. The unit goes into the
/// header.
extern const MeshWriter kNastranWriter;

}  // namespace kvocaeio::host
