/// Meshes of solids as Patran neutral files.
#pragma once

#include "solid_mesh.h"

namespace kvocaeio::host {

/// The library numbers nodes and elements from 1. The unit has no place in the file.
extern const MeshWriter kPatranWriter;

}  // namespace kvocaeio::host
