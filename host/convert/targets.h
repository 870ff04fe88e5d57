/// The formats that `convert` writes.
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
    std::string_view name;
    /// The library's writer of solids, null where there is none.
    const MeshWriter* solids = nullptr;
    /// Writes a mesh of any elements, scaled, and notes in it what the file does not hold. Throws
    /// `FileError`. Null where the format holds no meshes.
    void (*writeMesh)(Mesh& mesh, const std::string& path, const ConvertOptions& options) = nullptr;
    /// The same for a package.
    void (*writeScene)(PackageScene& scene, const std::string& path,
                       const ConvertOptions& options) = nullptr;
    bool isCompressible = false;
};

/// The target that the name of the file at `path` tells. Throws `FileError`.
const Target& targetOf(const std::string& path);

/// Throws `FileError` where the target cannot be written in the way that the options want.
void checkTarget(const ConvertOptions& options);

/// Whether the library's writer takes it.
inline bool isWrittenByLibrary(const Target& target, const ConvertOptions& options) {
    return target.solids != nullptr && !(options.wideNastran && target.writeMesh != nullptr);
}

/// ".glb (glTF), .vtp (VTK)": the targets for meshes, or those for packages.
std::string meshTargets();
std::string sceneTargets();

}  // namespace kvocaeio::host
