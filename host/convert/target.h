/// How a mesh or a package becomes a file of one format.
#pragma once

#include <string>
#include <string_view>

#include "convert/convert.h"
#include "mesh/mesh.h"
#include "package/scene.h"
#include "solid_mesh.h"

namespace kvocaeio::host {

struct Target {
    std::string_view extension;
    /// The library's writer of solids; null where the target is written by what follows.
    const MeshWriter* solids = nullptr;
    /// Writes the file at `path` and notes what of the mesh it does not hold. Throws `FileError`
    /// where that fails. Null where the format holds no meshes.
    void (*writeMesh)(Mesh& mesh, const std::string& path, const ConvertOptions& options) = nullptr;
    /// The same of packages.
    void (*writeScene)(PackageScene& scene, const std::string& path,
                       const ConvertOptions& options) = nullptr;
};

}  // namespace kvocaeio::host
