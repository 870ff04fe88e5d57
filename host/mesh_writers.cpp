/// The library's two writers, driven with a mesh.
#include "mesh_writers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <sstream>

#include <kvocaeio/nastran.h>
#include <kvocaeio/patran.h>

namespace kvocaeio::host {

namespace {

/// `nodes` of an element as ids that count from 1.
std::array<int, 8> idsOf(const SolidMesh::Element& element) {
    std::array<int, 8> ids{};
    std::transform(element.nodes.begin(), element.nodes.begin() + element.corners, ids.begin(),
                   [](int row) { return row + 1; });
    return ids;
}

/// Remarks by how much coordinates change that are written with `decimals`.
void remarkOnRounding(SolidMesh& mesh, std::chars_format form, int decimals, const char* what) {
    double largest = 0.0;
    char text[512];
    for (const auto& node : mesh.nodes)
        for (const double value : node) {
            const char* end = std::to_chars(text, text + sizeof text, value, form, decimals).ptr;
            double written = value;
            std::from_chars(text, end, written);
            largest = std::max(largest, std::fabs(written - value));
        }
    if (largest == 0.0)
        return;
    std::ostringstream remark;
    remark << "coordinates are written with " << what << ", which changes them by up to "
           << largest;
    mesh.remarks.push_back(remark.str());
}

}  // namespace

bool writeNastran(const SolidMesh& mesh, const std::string& path, const std::string& unit) {
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

void takeNastranNotes(SolidMesh& mesh) {
    remarkOnRounding(mesh, std::chars_format::fixed, 3, "three decimals");
    mesh.remarks.emplace_back("the deck needs a MAT1 card for material 1, which all sections name");
}

bool writePatran(const SolidMesh& mesh, const std::string& path, const std::string&) {
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

void takePatranNotes(SolidMesh& mesh) {
    remarkOnRounding(mesh, std::chars_format::scientific, 6, "seven digits");
    note(mesh.losses, mesh.sections.size(), "sections: elements have no property in the file");
}

}  // namespace kvocaeio::host
