/// The reader's arrays as one mesh.
#include "nastran/mesh.h"

#include <algorithm>
#include <array>

#include "mesh_checks.h"
#include "nastran/deck.h"
#include "node_rows.h"

namespace kvocaeio::host {

namespace {

void takeGrids(KVONASTRAN_Reader& reader, Mesh& mesh) {
    const float* row = reader.GetNodeVector();
    for (int oid = 1; oid <= reader.GetNodeCout(); ++oid, row += 4) {
        if (row[0] == 0.0f)
            continue;
        mesh.nodeOids.push_back(oid);
        mesh.places.insert(mesh.places.end(), row + 1, row + 4);
    }
}

/// The kind of an element with so many corners; null where it is none.
const CellShape* shapeOfCard(int corners) {
    if (corners == 2)
        return &cellShape(CellKind::kLine2);
    return findCellShape(3, static_cast<std::size_t>(corners == 7 ? 8 : corners));
}

void takeCards(KVONASTRAN_Reader& reader, Mesh& mesh) {
    const NodeRows rows(mesh.nodeOids);
    std::size_t degenerate = 0;
    std::size_t incomplete = 0;
    const int* row = reader.GetElemVector();
    for (int oid = 1; oid <= reader.GetElemCout(); ++oid, row += 9) {
        if (row[0] == 0)
            continue;
        const CellShape* const shape = shapeOfCard(cornersOf(row + 1));
        if (shape == nullptr) {
            ++degenerate;
            continue;
        }
        std::array<int, 8> nodes{};
        const auto end = std::transform(row + 1, row + 1 + shape->nodes, nodes.begin(),
                                        [&](int node) { return rows.find(node); });
        if (std::find(nodes.begin(), end, -1) != end) {
            ++incomplete;
            continue;
        }
        MeshSection model;
        model.origin = shape->dimension == 1 ? Origin::kLine : Origin::kSolid;
        MeshSection& section = mesh.sectionOf(shape->kind, 0, model);
        section.source = static_cast<std::size_t>(&section - mesh.sections.data());
        section.oids.push_back(oid);
        section.nodes.insert(section.nodes.end(), nodes.begin(), end);
    }
    leaveOut(mesh.losses, "degenerate", degenerate, "elements",
             " of other corners than solids have");
    leaveOut(mesh.losses, "elements-of-missing-nodes", incomplete, "elements",
             " of nodes that are not there");
}

}  // namespace

Mesh takeNastranMesh(const std::string& path, const MeshRequest& request) {
    refuseNormalised(request.normalised);
    NastranDeck deck(path, request.progress);
    Mesh mesh;
    mesh.imported = std::move(deck.imported);
    takeGrids(deck.reader, mesh);
    takeCards(deck.reader, mesh);
    leaveOut(mesh.losses, "shell-elements", mesh.imported.countOf("nastran.shell-empty"),
             "shell elements", ", which the library does not return");
    mesh.remarks.push_back({"properties-unknown", 1,
                            "the library does not return which property an element has: there is a "
                            "section for each kind"});
    return mesh;
}

}  // namespace kvocaeio::host
