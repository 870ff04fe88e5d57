/// What a host does to write a mesh through the library.
#pragma once

#include "bench/solid_mesh.h"

namespace kvocaeio::bench {

/// Both are false where the library says that it failed.
bool writeNastranMesh(const char* path, const SolidMesh& mesh);
bool writePatranMesh(const char* path, const SolidMesh& mesh);

}  // namespace kvocaeio::bench
