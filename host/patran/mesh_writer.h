/// Meshes of solids as Patran neutral files.
#pragma once

#include "solid_mesh.h"

namespace kvocaeio::host {

/// Nodes and elements numbered from 1. The unit has no place in the file.
extern const MeshWriter kPatranWriter;

}  // namespace kvocaeio::host
