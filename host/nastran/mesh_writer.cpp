/// The library's writer of Nastran decks, driven with a mesh.
#include "nastran/mesh_writer.h"

#include <algorithm>

#include "counted.h"
#include <kvocaeio/nastran.h>

namespace kvocaeio::host {

namespace {

constexpr int kLargestOid = 99'999'999;  // a field has eight columns

bool write(const SolidMesh& mesh, const std::string& path, const std::string& unit) {
    KVONASTRAN_Writer writer;
    if (!writer.SetFilePath(path.c_str(), unit.c_str()))
        return false;
    for (std::size_t row = 0; row < mesh.nodes.size(); ++row) {
        const auto& [x, y, z] = mesh.nodes[row];
        writer.AddNode(mesh.nodeOids[row], x, y, z);
    }
    int id = 0;
    for (const std::string& name : mesh.sections) {
        std::string comment = "$ Section " + std::to_string(++id) + ": " + name;
        std::replace_if(
            comment.begin(), comment.end(),
            [](char c) { return static_cast<unsigned char>(c) < 0x20; }, '?');
        comment += '\n';
        writer.WriteStringEntry(comment.data());
        writer.AddSection(id, 0);
    }
    for (const SolidMesh::Element& element : mesh.elements) {
        std::array<int, 8> oids = oidsOf(mesh, element);
        writer.AddElement(element.oid, static_cast<int>(element.section) + 1, element.corners,
                          oids.data());
    }
    return writer.EndWriting();
}

/// Whether a coordinate takes more than the eight characters of a field.
bool isWide(double value) {
    return value >= 9999.9995 || value <= -999.9995;
}

void takeNotes(SolidMesh& mesh) {
    const auto wide = static_cast<std::size_t>(std::count_if(
        mesh.nodes.begin(), mesh.nodes.end(),
        [](const auto& place) { return std::any_of(place.begin(), place.end(), isWide); }));
    if (wide != 0)
        mesh.remarks.push_back({"coordinates-wide", wide,
                                counted(wide, "nodes") +
                                    " with coordinates of more than eight characters, which other "
                                    "programs may round"});
    mesh.remarks.push_back({"material-missing", 1,
                            "the deck needs a MAT1 card for material 1, which all sections name"});
}

}  // namespace

const MeshWriter kNastranWriter = {write, "ENDDATA",        kLargestOid, std::chars_format::fixed,
                                   3,     "three decimals", takeNotes};

}  // namespace kvocaeio::host
