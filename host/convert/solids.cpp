/// Solids between the library's reader and its writer.
#include "convert/solids.h"

#include <algorithm>

#include "convert/oids.h"
#include "convert/rounding.h"
#include "file_report.h"
#include "formats.h"
#include "mesh/refusals.h"
#include "mesh_checks.h"
#include "replacement_file.h"
#include "tidy/tidied_deck.h"

namespace kvocaeio::host {

namespace {

/// Drops elements of nodes that are not there and nodes that no element has.
void compact(SolidMesh& mesh) {
    const auto nodeCount = static_cast<int>(mesh.nodes.size());
    const std::size_t lost = std::erase_if(mesh.elements, [&](const SolidMesh::Element& element) {
        return std::any_of(element.nodes.begin(), element.nodes.begin() + element.corners,
                           [&](int node) { return node < 0 || node >= nodeCount; });
    });
    leaveOut(mesh.losses, "elements-of-missing-nodes", lost, "elements",
             " of nodes that are not there");
    std::vector<int> newRows(mesh.nodes.size(), -1);
    for (const SolidMesh::Element& element : mesh.elements)
        for (int i = 0; i < element.corners; ++i)
            newRows[static_cast<std::size_t>(element.nodes[static_cast<std::size_t>(i)])] = 0;
    std::size_t used = 0;
    for (std::size_t row = 0; row < newRows.size(); ++row) {
        if (newRows[row] < 0)
            continue;
        newRows[row] = static_cast<int>(used);
        mesh.nodeOids[used] = mesh.nodeOids[row];
        mesh.nodes[used++] = mesh.nodes[row];
    }
    leaveOut(mesh.losses, "unused-nodes", mesh.nodes.size() - used, "nodes",
             " that no written element has");
    mesh.nodes.resize(used);
    mesh.nodeOids.resize(used);
    for (SolidMesh::Element& element : mesh.elements)
        for (int i = 0; i < element.corners; ++i) {
            int& node = element.nodes[static_cast<std::size_t>(i)];
            node = newRows[static_cast<std::size_t>(node)];
        }
}

void scale(SolidMesh& mesh, double factor) {
    for (auto& place : mesh.nodes)
        for (double& value : place)
            value *= factor;
}

/// Gives nodes and elements the OIDs of the original.
void restoreOids(TidiedDeck& deck, SolidMesh& mesh) {
    std::vector<int> oids;
    for (const SolidMesh::Element& element : mesh.elements)
        oids.push_back(element.oid);
    if (!oids.empty() && oids.front() == 0)  // the normalised mesh has none
        oids.clear();
    deck.restoreOids(mesh.nodeOids, oids, mesh.remarks);
    for (std::size_t row = 0; row < oids.size(); ++row)
        mesh.elements[row].oid = oids[row];
}

std::size_t countInfinitePlaces(const SolidMesh& mesh) {
    return static_cast<std::size_t>(std::ranges::count_if(
        mesh.nodes, [](const auto& place) { return !isFinitePlace(place.data()); }));
}

}  // namespace

SolidMesh takeSolids(const InputFile& file, const ConvertOptions& options) {
    const Format& format = findFormatToTidy(file.path(), !options.asIs);
    if (format.takeSolids == nullptr)
        throw FileError("is a " + std::string(format.name) +
                            ", and this kind of file is written of Abaqus decks and Patran neutral "
                            "files; meshes of all formats are written as .vtu, .inp, .glb and with "
                            "--nastran=wide",
                        "not-converted");
    TidiedDeck deck(file.path(), options.source);
    if (!options.asIs)
        deck.tidy(format);
    deck.requireGood("; --as-is converts what is read of the deck as it is");
    if (!options.force)
        refuseRepeats(deck);
    SolidMesh mesh = format.takeSolids(
        deck.path(), {options.normalised, options.force,
                      options.verbose ? PrintTarget::kStandardError : PrintTarget::kNowhere});
    deck.giveBack(mesh.imported);
    compact(mesh);
    restoreOids(deck, mesh);
    deck.takeNotes(mesh.losses, mesh.remarks);
    if (mesh.elements.empty())
        throw FileError("holds no tetrahedra, wedges or hexahedra", "no-solids");
    scale(mesh, options.scale);
    refuseInfinitePlaces(countInfinitePlaces(mesh));
    if (!options.force)
        refuseErrors(mesh.imported, options.source);
    return mesh;
}

void writeSolids(SolidMesh& mesh, const MeshWriter& writer, const ConvertOptions& options) {
    const std::string unit = options.lengthUnit();
    chooseOids(mesh, writer);
    checkRounding(mesh, writer, unit);
    ReplacementFile file(options.target);
    if (!writer.write(mesh, file.path(), unit) || !file.endsWith(writer.ending))
        throw FileError("cannot be written as a whole: the disk may be full", "cannot-be-written");
    file.finish();
    writer.takeNotes(mesh);
}

}  // namespace kvocaeio::host
