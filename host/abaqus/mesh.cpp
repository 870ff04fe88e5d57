/// The reader's tables as one mesh.
#include "abaqus/mesh.h"

#include <algorithm>
#include <span>

#include "abaqus/deck.h"
#include "abaqus/notes.h"
#include "abaqus/repeats.h"
#include "abaqus/summary.h"
#include "node_rows.h"

namespace kvocaeio::host {

namespace {

void takeDeckNodes(const DeckTables& tables, Mesh& mesh) {
    mesh.nodeOids = tables.nodeIds;
    mesh.places.reserve(3 * tables.places.size());
    for (std::size_t row = 0; row < tables.places.size(); ++row) {
        const double* const place = tables.places[row];
        mesh.places.insert(mesh.places.end(), place, place + 3);
        if (tables.nodeIds[row] == 0 && place[0] == 0.0 && place[1] == 0.0 && place[2] == 0.0)
            mesh.phantoms.push_back(static_cast<int>(row));
    }
}

/// Elements of blocks, as they are listed.
class ListedElements {
  public:
    /// `alike` are the rows that repeat others.
    ListedElements(const DeckTables& tables, const std::vector<std::size_t>& alike, Mesh& mesh)
        : mesh_(mesh), tables_(tables), rows_(tables.nodeIds), alike_(alike) {}

    void take() {
        for (std::size_t block = 0; block < tables_.raw.size(); ++block)
            takeBlock(block);
        leaveOut(mesh_.losses, "unknown-type", unknown_, "elements", " of unknown type");
        leaveOut(mesh_.losses, "elements-listed-again", alike_.size(), "elements",
                 " listed again with the same OID and nodes");
        leaveOut(mesh_.losses, "elements-of-missing-nodes", incomplete_, "elements",
                 " of nodes that are not there");
    }

  private:
    void takeBlock(std::size_t block) {
        const Section& section = tables_.raw[block];
        const CellShape* const shape =
            section.geometry == Geometry::kUnknown
                ? nullptr
                : findCellShape(section.geometry == Geometry::kSolid ? 3 : 2,
                                static_cast<std::size_t>(section.nodesPerElement));
        const std::size_t first = number_;
        number_ += section.nodesPerElement == 0 ? 0 : section.elements;
        if (shape == nullptr) {
            unknown_ += section.elements;
            return;
        }
        MeshSection taken;
        taken.name = section.elset;
        taken.kind = shape->kind;
        taken.origin = shape->dimension == 3 ? Origin::kSolid : Origin::kShell;
        taken.source = block;
        taken.oids.reserve(section.elements);
        taken.nodes.reserve(section.elements * shape->nodes);
        for (std::size_t e = 0; e < section.elements; ++e)
            if (!std::ranges::binary_search(alike_, first + e) &&
                takeNodes({section.element(e), shape->nodes}, taken.nodes))
                taken.oids.push_back(section.ids[e]);
        if (!taken.nodes.empty())
            mesh_.sections.push_back(std::move(taken));
    }

    /// Appends an element's nodes; false, with nothing appended, where one of them is missing.
    bool takeNodes(std::span<const int> oids, std::vector<int>& nodes) {
        const std::size_t begin = nodes.size();
        for (const int oid : oids) {
            const int row = rows_.find(oid);
            if (row < 0) {
                nodes.resize(begin);
                ++incomplete_;
                return false;
            }
            nodes.push_back(row);
        }
        return true;
    }

    Mesh& mesh_;
    const DeckTables& tables_;
    NodeRows rows_;
    const std::vector<std::size_t>& alike_;
    std::size_t number_ = 0;  // of the block's first element, as the repeats count
    std::size_t unknown_ = 0;
    std::size_t incomplete_ = 0;
};

/// The kind of a row of the normalised mesh, of which the last node is repeated where there are
/// fewer than its section is wide; null for a blank one.
const CellShape* shapeOfRow(const Section& section, const int* row) {
    const int corners = cornersOf(section, row);
    if (corners == 1)
        return nullptr;
    const bool isSolid = section.geometry == Geometry::kSolid;
    for (int nodes = std::max(corners, isSolid ? 4 : 3); nodes < section.nodesPerElement; ++nodes)
        if (const CellShape* shape =
                findCellShape(isSolid ? 3 : 2, static_cast<std::size_t>(nodes)))
            return shape;
    return findCellShape(isSolid ? 3 : 2, static_cast<std::size_t>(section.nodesPerElement));
}

Origin originOf(const Section& section) {
    if (section.elset == kLoadFaces)
        return Origin::kLoadFace;
    if (section.elset == kSurfaceFaces)
        return Origin::kSurfaceFace;
    return section.geometry == Geometry::kSolid ? Origin::kSolid : Origin::kShell;
}

/// Takes the sections that are wanted of the normalised mesh; the first of them is the source's
/// section `source`. Returns the number of blank rows.
template <class Wanted>
std::size_t takeNormalisedSections(const DeckTables& tables, std::size_t source, Mesh& mesh,
                                   const Wanted& isWanted) {
    std::size_t blank = 0;
    for (const Section& section : tables.normalised) {
        if (!isWanted(section))
            continue;
        MeshSection model;
        model.name = section.elset;
        model.origin = originOf(section);
        model.source = source++;
        const std::size_t first = mesh.sections.size();
        for (std::size_t e = 0; e < section.elements; ++e) {
            const int* const row = section.element(e);
            const CellShape* const shape = shapeOfRow(section, row);
            if (shape == nullptr) {
                ++blank;
                continue;
            }
            std::vector<int>& nodes = mesh.sectionOf(shape->kind, first, model).nodes;
            nodes.insert(nodes.end(), row, row + shape->nodes);
        }
    }
    return blank;
}

/// Puts thicknesses to the shells of their sets.
void takeThicknesses(const DeckTables& tables, Mesh& mesh) {
    std::size_t lost = 0;
    for (const ShellThickness& shell : tables.thicknesses) {
        bool isTaken = false;
        for (MeshSection& section : mesh.sections)
            if (section.origin == Origin::kShell && section.name == shell.elset) {
                section.thickness = shell.thickness;
                isTaken = true;
            }
        lost += isTaken ? 0 : 1;
    }
    leaveOut(mesh.losses, "shell-thicknesses", lost, "thickness values",
             " of sets that are no section of shells");
}

void takeNormalised(const DeckTables& tables, Mesh& mesh) {
    const std::size_t blank =
        takeNormalisedSections(tables, 0, mesh, [](const Section&) { return true; });
    leaveOut(mesh.losses, "blank-row", blank, "rows", " that hold no element");
    const DeckSummary summary = summarise(tables, true);
    leaveOut(mesh.losses, "unknown-type", summary.unknownType, "elements", " of unknown type");
    takeNormalisedNotes(summary, true, mesh.losses, mesh.remarks);
    mesh.remarks.push_back({"elements-without-oids", mesh.elements(),
                            "elements have no OIDs: those of the normalised mesh have none"});
}

}  // namespace

Mesh takeAbaqusMesh(const std::string& path, const MeshRequest& request) {
    const AbaqusDeck deck(path, request.progress);
    const DeckTables& tables = deck.tables;
    if (request.normalised)
        requireNormalised(deck);
    Mesh mesh;
    const OidRepeats elements = findRepeatedElements(tables);
    checkConflicts(findRepeatedNodes(tables), elements, request.force, mesh.remarks);
    mesh.imported = request.normalised || request.findsAll ? deck.imported : deck.listed;
    mesh.normalised = request.normalised;
    takeDeckNodes(tables, mesh);
    if (request.normalised) {
        takeNormalised(tables, mesh);
    } else {
        ListedElements(tables, elements.alike, mesh).take();
        takeNormalisedSections(tables, tables.raw.size(), mesh,
                               [](const Section& section) { return section.isOfFaces(); });
        takeSetNotes(tables, mesh.losses);
    }
    takeThicknesses(tables, mesh);
    takeSortFailure(deck, mesh.remarks);
    return mesh;
}

}  // namespace kvocaeio::host
