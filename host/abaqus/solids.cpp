/// Solids of an Abaqus deck, for another format.
#include "abaqus/solids.h"

#include <algorithm>
#include <map>
#include <set>

#include "abaqus/deck.h"
#include "abaqus/node_rows.h"
#include "abaqus/repeats.h"
#include "abaqus/summary.h"
#include "counted.h"
#include "file_report.h"

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
    leaveOut(mesh, "pyramids", pyramids, "pyramids");
    leaveOut(mesh, "blank-row", blank, "rows", " that hold no element");
    mesh.remarks.push_back({"elements-renumbered", mesh.elements.size(),
                            "elements are numbered from 1: those of the normalised mesh have no "
                            "OIDs"});
}

void takeNormalisedNotes(const DeckSummary& summary, SolidMesh& mesh) {
    leaveOut(mesh, "in-no-set", summary.otherLeftOut, "elements", " in no generated set");
    std::size_t repeated = 0;
    for (const NormalisedSummary& section : summary.normalised)
        if (section.list == "solid")
            repeated += section.repeated;
    if (repeated != 0)
        mesh.remarks.push_back(
            {"repeated-element", repeated,
             counted(repeated, "elements") + " written once more for being in several sets"});
    if (summary.undefinedNodes != 0)
        mesh.remarks.push_back({"undefined-node", summary.undefinedNodes,
                                counted(summary.undefinedNodes, "times") +
                                    " the first node stands in for one that the deck lacks"});
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
    leaveOut(mesh, other);
    leaveOut(mesh, "elements-listed-again", again, "elements",
             " listed again with the same OID and nodes");
}

/// Sets that the deck makes of elements listed in others, which the normalised mesh shows.
void takeSetNotes(const DeckTables& tables, SolidMesh& mesh) {
    std::set<std::string> others;
    for (std::size_t s = 0; s < tables.solids; ++s)
        others.insert(tables.normalised[s].elset);
    for (const Section& section : tables.raw)
        others.erase(section.elset);
    leaveOut(mesh, "generated-sets", others.size(), "generated sets",
             ", which --normalised carries over");
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
    leaveOut(mesh, "unknown-type", unknown, "elements", " of unknown type");
    leaveOut(mesh, "shell-elements", shells, "shell elements");
    leaveOut(mesh, "shell-thicknesses", tables.thicknesses.size(), "shell thicknesses");
    leaveOut(mesh, "faces", faces, "faces", " of loads and surfaces");
    leaveOut(mesh, "mid-side-nodes", reduced, "quadratic elements",
             " without their mid-side nodes");
}

std::string firstOf(const std::vector<int>& oids) {
    return counted(oids.size(), "OIDs") + " (" + std::to_string(oids.front()) +
           (oids.size() > 1 ? " first)" : ")");
}

/// Refuses OIDs that are defined twice with different content, or remarks what became of them.
void checkConflicts(const OidRepeats& nodes, const OidRepeats& elements, bool force,
                    SolidMesh& mesh) {
    std::string what;
    if (!nodes.conflicts.empty())
        what = firstOf(nodes.conflicts) + " of nodes";
    if (!elements.conflicts.empty())
        what += (what.empty() ? "" : " and ") + firstOf(elements.conflicts) + " of elements";
    if (what.empty())
        return;
    if (!force)
        throw FileError(what +
                            " are defined more than once with different content, as in a deck of "
                            "several parts: give it in one numbering, or --force to take the last "
                            "definition of each node and every element",
                        "defined-twice");
    mesh.remarks.push_back({"oid-conflicts", nodes.conflicts.size() + elements.conflicts.size(),
                            what + " are defined more than once with different content: of nodes "
                                   "the last definition is taken"});
}

}  // namespace

SolidMesh takeAbaqusSolids(const std::string& path, const SolidsRequest& request) {
    const AbaqusDeck deck(path, request.progress);
    const DeckTables& tables = deck.tables;
    if (request.normalised && !deck.sortFailure.empty())
        throw FileError("the deck cannot be normalised: " + deck.sortFailure, "not-normalised");
    SolidMesh mesh;
    const OidRepeats elements = findRepeatedElements(tables);
    checkConflicts(findRepeatedNodes(tables), elements, request.force, mesh);
    mesh.imported = request.normalised ? deck.imported : deck.listed;
    mesh.nodeOids = tables.nodeIds;
    for (const double* place : tables.places)
        mesh.nodes.push_back({place[0], place[1], place[2]});
    if (request.normalised) {
        const DeckSummary summary = summarise(tables, true);
        takeNormalisedElements(tables, mesh);
        takeNormalisedNotes(summary, mesh);
        takeOtherNotes(tables, &summary, mesh);
    } else {
        takeListedElements(tables, mesh, elements);
        takeSetNotes(tables, mesh);
        takeOtherNotes(tables, nullptr, mesh);
    }
    if (!deck.sortFailure.empty())
        mesh.remarks.push_back({"not-normalised", 1,
                                "loads, surfaces and generated sets are not known: the deck cannot "
                                "be normalised: " +
                                    deck.sortFailure});
    return mesh;
}

}  // namespace kvocaeio::host
