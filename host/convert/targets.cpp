/// The table of targets, and the choice among them.
#include "convert/targets.h"

#include <algorithm>
#include <array>

#include "abaqus/mesh_writer.h"
#include "file_report.h"
#include "formats.h"
#include "gltf/writers.h"
#include "nastran/mesh_writer.h"
#include "nastran/wide_writer.h"
#include "patran/mesh_writer.h"
#include "vtk/deflate.h"
#include "vtk/mesh_file.h"
#include "vtk/package_file.h"

namespace kvocaeio::host {

namespace {

// Those of one name stand together.
constexpr std::array<Target, 7> kTargets = {{
    {.extension = ".nas",
     .name = "Nastran",
     .solids = &kNastranWriter,
     .writeMesh = writeWideNastran},
    {.extension = ".bdf",
     .name = "Nastran",
     .solids = &kNastranWriter,
     .writeMesh = writeWideNastran},
    {.extension = ".pat", .name = "Patran", .solids = &kPatranWriter},
    {.extension = ".inp", .name = "Abaqus", .writeMesh = writeAbaqusDeck},
    {.extension = ".glb",
     .name = "glTF",
     .writeMesh = writeGltfMesh,
     .writeScene = writeGltfPackage},
    {.extension = ".vtu", .name = "VTK", .writeMesh = writeVtkMesh, .isCompressible = true},
    {.extension = ".vtp", .name = "VTK", .writeScene = writeVtkPackage, .isCompressible = true},
}};

/// ".nas, .bdf (Nastran), .inp (Abaqus)": the targets that are wanted.
template <class Wanted>
std::string extensionsOf(const Wanted& isWanted) {
    std::string names;
    std::string_view name;
    for (const Target& target : kTargets) {
        if (!isWanted(target))
            continue;
        if (!name.empty() && name != target.name)
            names += " (" + std::string(name) + ")";
        names += (names.empty() ? "" : ", ") + std::string(target.extension);
        name = target.name;
    }
    return names + " (" + std::string(name) + ")";
}

}  // namespace

const Target& targetOf(const std::string& path) {
    const auto* const target =
        std::ranges::find(kTargets, std::string_view(extensionOf(path)), &Target::extension);
    if (target == kTargets.end())
        throw FileError("cannot be written: its name must end in " +
                            extensionsOf([](const Target&) { return true; }),
                        "unknown-target");
    return *target;
}

void checkTarget(const ConvertOptions& options) {
    const Target& target = targetOf(options.target);
    if (!options.compress)
        return;
    if (!target.isCompressible)
        throw FileError("cannot be compressed, as " + extensionsOf([](const Target& each) {
                            return each.isCompressible;
                        }) + " can be",
                        "not-compressed");
    if (!canDeflate())
        throw FileError("cannot be compressed: this program was built without zlib",
                        "not-compressed");
}

std::string meshTargets() {
    return extensionsOf([](const Target& target) {
        return target.solids != nullptr || target.writeMesh != nullptr;
    });
}

std::string sceneTargets() {
    return extensionsOf([](const Target& target) { return target.writeScene != nullptr; });
}

}  // namespace kvocaeio::host
