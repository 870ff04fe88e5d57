/// The library's writer of Nastran decks, driven with a mesh.
#include "nastran/mesh_writer.h"

#include <algorithm>

#include <kvocaeio/nastran.h>

namespace kvocaeio::host {

namespace {

bool write(const SolidMesh& mesh, const std::string& path, const std::string& unit) {
    KVONASTRAN_Writer writer;
    if (!writer.SetFilePath(path.c_str(), unit.c_str()))
        return false;
    int id = 0;
    for (const auto& [x, y, z] : mesh.nodes)
        writer.AddNode(++id, x, y, z);
    id = 0;
    for (const std::string& name : mesh.sections) {
        std::string comment = "$ Section " + std::to_string(++id) + ": " + name;
        std::replace_if(
            comment.begin(), comment.end(),
            [](char c) { return static_cast<unsigned char>(c) < 0x20; }, '?');
        comment += '\n';
        writer.WriteStringEntry(comment.data());
        writer.AddSection(id, 0);
    }
    id = 0;
    for (const SolidMesh::Element& element : mesh.elements) {
        std::array<int, 8> ids = idsOf(element);
        writer.AddElement(++id, static_cast<int>(element.section) + 1, element.corners, ids.data());
    }
    return writer.EndWriting();
}

void takeNotes(SolidMesh& mesh) {
    remarkOnRounding(mesh, std::chars_format::fixed, 3, "three decimals");
    mesh.remarks.emplace_back("the deck needs a MAT1 card for material 1, which all sections name");
}

}  // namespace

const MeshWriter kNastranWriter = {write, "ENDDATA", takeNotes};

}  // namespace kvocaeio::host
