/// The search for the elements of faces.
#include "abaqus/deck_surfaces.h"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "counted.h"

namespace kvocaeio::host {

namespace {

/// The corners of a face in their order; -1 after them where they are three. Solids on its two
/// sides list it in different orders.
using ListedCorners = std::array<int, 4>;

struct SolidFace {
    ListedCorners corners;
    int element;  ///< OID
    int face;     ///< from 1
};

template <class NodeAt>
ListedCorners listedCornersOf(CellKind kind, const NodeAt& nodeAt) {
    ListedCorners corners;
    corners.fill(-1);
    for (std::size_t i = 0; i < cellShape(kind).corners; ++i)
        corners[i] = nodeAt(i);
    return corners;
}

/// Faces of `section` as they are listed.
template <class Take>
void forFaces(const MeshSection& section, const Take& take) {
    for (std::size_t row = 0; row < section.elements(); ++row)
        take(listedCornersOf(section.kind, [&](std::size_t i) { return section.element(row)[i]; }));
}

/// The faces of solids that are one of those that `mesh` lists, by their corners.
std::vector<SolidFace> findSolidFaces(const Mesh& mesh) {
    std::vector<ListedCorners> wanted;
    for (const MeshSection& section : mesh.sections)
        if (section.isOfFaces())
            forFaces(section, [&](const ListedCorners& corners) { wanted.push_back(corners); });
    std::sort(wanted.begin(), wanted.end());
    std::vector<SolidFace> found;
    if (wanted.empty())
        return found;
    for (const MeshSection& section : mesh.sections) {
        const CellShape& shape = cellShape(section.kind);
        for (std::size_t row = 0; row < section.elements() && !shape.faces.empty(); ++row) {
            int number = 0;
            for (const CellFace& face : shape.faces) {
                ++number;
                const ListedCorners corners = listedCornersOf(
                    face.kind, [&](std::size_t i) { return section.element(row)[face.places[i]]; });
                if (std::binary_search(wanted.begin(), wanted.end(), corners))
                    found.push_back({corners, section.oids[row], number});
            }
        }
    }
    std::ranges::stable_sort(found, {}, &SolidFace::corners);
    return found;
}

}  // namespace

DeckSurfaces::DeckSurfaces(const Mesh& mesh) {
    const std::vector<SolidFace> solids = findSolidFaces(mesh);
    for (const Origin origin : {Origin::kLoadFace, Origin::kSurfaceFace}) {
        Surface surface = {origin == Origin::kLoadFace ? "LOAD_FACES" : "SURFACE_FACES", {}};
        std::unordered_set<int> inRun;
        for (const MeshSection& section : mesh.sections) {
            if (section.origin != origin)
                continue;
            forFaces(section, [&](const ListedCorners& corners) {
                const auto solid =
                    std::ranges::lower_bound(solids, corners, {}, &SolidFace::corners);
                if (solid == solids.end() || solid->corners != corners) {
                    ++others_;
                    return;
                }
                if (surface.runs.empty() || surface.runs.back().face != solid->face ||
                    inRun.contains(solid->element)) {
                    surface.runs.push_back({solid->face, {}});
                    inRun.clear();
                }
                surface.runs.back().elements.push_back(solid->element);
                inRun.insert(solid->element);
            });
        }
        if (!surface.runs.empty())
            surfaces_.push_back(std::move(surface));
    }
}

void DeckSurfaces::takeNotes(std::vector<Note>& losses, std::vector<Note>& remarks) const {
    leaveOut(losses, "faces", others_, "faces", " of loads and surfaces that no solid has");
    for (const Surface& surface : surfaces_) {
        std::size_t faces = 0;
        for (const Run& run : surface.runs)
            faces += run.elements.size();
        remarks.push_back({"faces-as-surface", faces,
                           counted(faces, "faces") + " in the surface " +
                               std::string(surface.name) +
                               ": the library returns neither names of surfaces nor pressures"});
    }
}

}  // namespace kvocaeio::host
