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
    int index = 0;
    for (const auto& [x, y, z] : mesh.nodes)
        writer.AddNode(index++, x, y, z);
    writer.SetElemCount(static_cast<int>(mesh.elements.size()));
    if (!writer.SetElemArray())
        return false;
    index = 0;
    for (const SolidMesh::Element& element : mesh.elements) {
        std::array<int, 8> ids = idsOf(element);
        writer.AddElement(index++, element.corners, ids.data());
    }
    return writer.WriteFile();
}

void takeNotes(SolidMesh& mesh) {
    remarkOnRounding(mesh, std::chars_format::scientific, 6, "seven digits");
    note(mesh.losses, mesh.sections.size(), "sections: elements have no property in the file");
}

}  // namespace

const MeshWriter kPatranWriter = {
    write, "99       0       0       1       0       0       0       080", takeNotes};

}  // namespace kvocaeio::host
