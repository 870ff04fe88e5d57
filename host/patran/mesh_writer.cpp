/// The library's writer of Patran neutral files, driven with a mesh.
#include "patran/mesh_writer.h"

#include <kvocaeio/patran.h>

namespace kvocaeio::host {

namespace {

bool write(const SolidMesh& mesh, const std::string& path, const std::string&) {
    CKVO_PATWriter_Bridge writer;
    writer.SetFilePath(path.c_str());
    writer.SetNodeCount(static_cast<int>(mesh.nodes.size()));
    writer.SetNodeArray();
    for (std::size_t row = 0; row < mesh.nodes.size(); ++row) {
        const auto& [x, y, z] = mesh.nodes[row];
        writer.AddNode(mesh.nodeOids[row] - 1, x, y, z);
    }
    writer.SetElemCount(static_cast<int>(mesh.elements.size()));
    if (!writer.SetElemArray())
        return false;
    for (const SolidMesh::Element& element : mesh.elements) {
        std::array<int, 8> oids = oidsOf(mesh, element);
        writer.AddElement(element.oid - 1, element.corners, oids.data());
    }
    return writer.WriteFile();
}

void takeNotes(SolidMesh& mesh) {
    leaveOut(mesh.losses, "sections", mesh.sections.size(), "sections",
             ": elements have no property in the file");
}

}  // namespace

const MeshWriter kPatranWriter = {
    write,    "99       0       0       1       0       0       0       080",
    0,        std::chars_format::scientific,
    6,        "seven digits",
    takeNotes};

}  // namespace kvocaeio::host
