/// Solids of a normalised Abaqus deck, for another format.
#include "abaqus/solids.h"

#include <algorithm>

#include "abaqus/deck.h"
#include "abaqus/summary.h"
#include "file_report.h"

namespace kvocaeio::host {

namespace {

// What a row of the normalised table holds that is no tetrahedron, wedge or hexahedron.
void countOther(int corners, KindCounts& other) {
    if (corners == 5)
        count(other, "pyramids");
    else
        count(other, "rows that hold no element");
}

void takeElements(const DeckTables& tables, SolidMesh& mesh) {
    KindCounts other;
    for (std::size_t s = 0; s < tables.solids; ++s) {
        const Section& section = tables.normalised[s];
        mesh.sections.push_back(section.elset);
        for (std::size_t e = 0; e < section.elements; ++e) {
            const int* row = section.element(e);
            SolidMesh::Element element{s, cornersOf(section, row), {}};
            if (element.corners != 4 && element.corners != 6 && element.corners != 8) {
                countOther(element.corners, other);
                continue;
            }
            std::copy_n(row, element.corners, element.nodes.begin());
            mesh.elements.push_back(element);
        }
    }
    for (const auto& [name, number] : other)
        note(mesh.losses, number, name);
}

void takeNotes(const DeckTables& tables, SolidMesh& mesh) {
    const DeckSummary summary = summarise(tables, true);
    note(mesh.losses, summary.unknownType, "elements of unknown type");
    note(mesh.losses, summary.otherLeftOut, "elements that are in no generated set");
    std::size_t shells = 0;
    std::size_t repeated = 0;
    for (const NormalisedSummary& section : summary.normalised) {
        if (section.list == "solid")
            repeated += section.repeated;
        else if (section.origin == "elements")
            shells += section.elements;
    }
    note(mesh.losses, shells, "shell elements");
    note(mesh.losses, summary.thicknesses.size(), "shell thicknesses");
    note(mesh.losses, summary.loadFaces + summary.surfaceFaces, "faces of loads and surfaces");
    std::size_t reduced = 0;
    for (const RawSummary& section : summary.raw)
        if (section.reduced)
            reduced += section.elements - section.leftOut;
    note(mesh.losses, reduced, "quadratic elements' mid-side nodes");
    note(mesh.remarks, repeated, "elements are written once more, since they are in several sets");
    note(mesh.remarks, summary.undefinedNodes,
         "times the first node stands in for one that the deck lacks");
}

}  // namespace

SolidMesh takeAbaqusSolids(const std::string& path, PrintTarget progress) {
    const AbaqusDeck deck(path, progress);
    if (!deck.sortFailure.empty())
        throw FileError("the deck cannot be normalised: " + deck.sortFailure);
    SolidMesh mesh;
    for (const double* place : deck.tables.places)
        mesh.nodes.push_back({place[0], place[1], place[2]});
    takeElements(deck.tables, mesh);
    takeNotes(deck.tables, mesh);
    return mesh;
}

}  // namespace kvocaeio::host
