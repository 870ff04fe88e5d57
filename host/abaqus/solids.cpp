/// Solids of an Abaqus deck, for another format.
#include "abaqus/solids.h"

#include <algorithm>
#include <map>

#include "abaqus/deck.h"
#include "abaqus/notes.h"
#include "abaqus/repeats.h"
#include "abaqus/summary.h"
#include "kind_counts.h"
#include "node_rows.h"

namespace kvocaeio::host {

namespace {

bool isWritten(int corners) {
    return corners == 4 || corners == 6 || corners == 8;
}

void takeNormalisedElements(const DeckTables& tables, SolidMesh& mesh) {
    std::size_t pyramids = 0;
    std::size_t blank = 0;
    for (std::size_t s = 0; s < tables.solids; ++s) {
        const Section& section = tables.normalised[s];
        mesh.sections.push_back(section.elset);
        for (std::size_t e = 0; e < section.elements; ++e) {
            const int* row = section.element(e);
            SolidMesh::Element element{s, cornersOf(section, row), {}, 0};
            if (!isWritten(element.corners)) {
                ++(element.corners == 5 ? pyramids : blank);
                continue;
            }
            std::copy_n(row, element.corners, element.nodes.begin());
            mesh.elements.push_back(element);
        }
    }
    leaveOut(mesh.losses, "pyramids", pyramids, "pyramids");
    leaveOut(mesh.losses, "blank-row", blank, "rows", " that hold no element");
    mesh.remarks.push_back({"elements-renumbered", mesh.elements.size(),
                            "elements are numbered from 1: those of the normalised mesh have no "
                            "OIDs"});
}

/// The elements that the deck lists, with OIDs; sections of one name are one.
void takeListedElements(const DeckTables& tables, SolidMesh& mesh, const OidRepeats& repeats) {
    const NodeRows rows(tables.nodeIds);
    std::map<std::string, std::size_t> sections;
    KindCounts other;
    std::size_t number = 0;  // as the repeats count
    std::size_t again = 0;
    for (const Section& section : tables.raw) {
        const ElementKind& kind = elementKind(section.geometry, section.nodesPerElement);
        if (section.nodesPerElement == 0)
            continue;
        if (section.geometry != Geometry::kSolid || !isWritten(kind.corners)) {
            if (section.geometry == Geometry::kSolid && kind.corners != 0)
                count(other, kind.name, section.elements);
            number += section.elements;
            continue;
        }
        const auto [named, isNew] = sections.emplace(section.elset, sections.size());
        if (isNew)
            mesh.sections.push_back(section.elset);
        for (std::size_t e = 0; e < section.elements; ++e, ++number) {
            if (std::binary_search(repeats.alike.begin(), repeats.alike.end(), number)) {
                ++again;
                continue;
            }
            SolidMesh::Element element{named->second, kind.corners, {}, section.ids[e]};
            std::transform(section.element(e), section.element(e) + kind.corners,
                           element.nodes.begin(), [&](int oid) { return rows.find(oid); });
            mesh.elements.push_back(element);
        }
    }
    leaveOut(mesh.losses, other);
    leaveOut(mesh.losses, "elements-listed-again", again, "elements",
             " listed again with the same OID and nodes");
}

/// What the deck holds beside solids. Where these are those of the normalised mesh, `summary` tells
/// which elements did not get there.
void takeOtherNotes(const DeckTables& tables, const DeckSummary* summary, SolidMesh& mesh) {
    std::size_t shells = 0;
    std::size_t unknown = 0;
    std::size_t reduced = 0;
    for (std::size_t s = 0; s < tables.raw.size(); ++s) {
        const Section& section = tables.raw[s];
        const ElementKind& kind = elementKind(section.geometry, section.nodesPerElement);
        if (kind.corners == 0)
            unknown += section.elements;
        else if (kind.geometry == Geometry::kShell)
            shells += section.elements;
        else if (kind.corners < kind.nodes)
            reduced += section.elements - (summary == nullptr ? 0 : summary->raw[s].leftOut);
    }
    std::size_t faces = 0;
    for (const Section& section : tables.normalised)
        if (section.isOfFaces())
            faces += section.elements;
    leaveOut(mesh.losses, "unknown-type", unknown, "elements", " of unknown type");
    leaveOut(mesh.losses, "shell-elements", shells, "shell elements");
    leaveOut(mesh.losses, "shell-thicknesses", tables.thicknesses.size(), "shell thicknesses");
    leaveOut(mesh.losses, "faces", faces, "faces", " of loads and surfaces");
    leaveOut(mesh.losses, "mid-side-nodes", reduced, "quadratic elements",
             " without their mid-side nodes");
}

}  // namespace

SolidMesh takeAbaqusSolids(const std::string& path, const MeshRequest& request) {
    const AbaqusDeck deck(path, request.progress);
    const DeckTables& tables = deck.tables;
    if (request.normalised)
        requireNormalised(deck);
    SolidMesh mesh;
    const OidRepeats elements = findRepeatedElements(tables);
    checkConflicts(findRepeatedNodes(tables), elements, request.force, mesh.remarks);
    mesh.imported = request.normalised ? deck.imported : deck.listed;
    mesh.nodeOids = tables.nodeIds;
    for (const double* place : tables.places)
        mesh.nodes.push_back({place[0], place[1], place[2]});
    if (request.normalised) {
        const DeckSummary summary = summarise(tables, true);
        takeNormalisedElements(tables, mesh);
        takeNormalisedNotes(summary, false, mesh.losses, mesh.remarks);
        takeOtherNotes(tables, &summary, mesh);
    } else {
        takeListedElements(tables, mesh, elements);
        takeSetNotes(tables, mesh.losses);
        takeOtherNotes(tables, nullptr, mesh);
    }
    takeSortFailure(deck, mesh.remarks);
    return mesh;
}

}  // namespace kvocaeio::host
