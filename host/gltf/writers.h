/// Meshes and packages as binary glTF files (.glb).
#pragma once

#include <string>

namespace kvocaeio::host {

struct ConvertOptions;
struct Mesh;
struct PackageScene;

/// The outer faces by section, in metres, y up; notes what they do not tell of the mesh. Throws
/// `FileError` where the file cannot be written.
void writeGltfMesh(Mesh& mesh, const std::string& path, const ConvertOptions& options);

/// Bodies, and wires as tubes, in their colours.
void writeGltfPackage(PackageScene& scene, const std::string& path, const ConvertOptions& options);

}  // namespace kvocaeio::host
