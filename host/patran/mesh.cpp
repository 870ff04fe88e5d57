/// The arrays of `CPatranReader` as one mesh.
#include "patran/mesh.h"

#include <algorithm>
#include <map>

#include "mesh_checks.h"
#include "patran/arrays.h"
#include "timed.h"
#include <kvocaeio/patran.h>

namespace kvocaeio::host {

namespace {

/// The dimension of the elements of one of the reader's shapes.
int dimensionOf(const Shape& shape) {
    return shape.solid ? 3 : shape.corners > 2 ? 2 : 1;
}

constexpr std::array<Origin, 4> kOrigins = {Origin::kLine, Origin::kLine, Origin::kShell,
                                            Origin::kSolid};

}  // namespace

Mesh takePatranMesh(const std::string& path, const MeshRequest& request) {
    refuseNormalised(request.normalised);
    CPatranReader reader;
    Mesh mesh;
    timed(request.progress, [&] { import(reader, path, mesh.imported); });
    const int nodes = std::max(0, reader.GetNodeCout());
    const int elements = std::max(0, reader.GetElemCount());
    requireMesh(static_cast<std::size_t>(nodes), static_cast<std::size_t>(elements),
                "a Patran neutral file");
    mesh.places.reserve(3 * static_cast<std::size_t>(nodes));
    for (int row = 0; row < nodes; ++row) {
        const std::array<float, 3> place = nodeAt(reader, row);
        mesh.places.insert(mesh.places.end(), place.begin(), place.end());
    }
    std::map<int, std::size_t> sources;  // by property id
    std::map<std::pair<std::size_t, const CellShape*>, std::size_t> sections;
    std::size_t others = 0;
    std::size_t incomplete = 0;
    for (int i = 0; i < elements; ++i) {
        const ArrayElement element = elementAt(reader, i);
        const Shape& shape = shapeOf(element.shape);
        const auto* const end = element.nodes.begin() + shape.corners;
        const CellShape* const cell =
            findCellShape(dimensionOf(shape), static_cast<std::size_t>(shape.corners));
        if (cell == nullptr) {
            ++others;
            continue;
        }
        if (std::any_of(element.nodes.begin(), end, [&](int node) { return node >= nodes; })) {
            ++incomplete;
            continue;
        }
        const std::size_t source = sources.emplace(element.property, sources.size()).first->second;
        const auto [section, isNew] = sections.emplace(std::pair(source, cell), sections.size());
        if (isNew) {
            MeshSection& made = mesh.sections.emplace_back();
            made.name = "property " + std::to_string(element.property);
            made.kind = cell->kind;
            made.origin = kOrigins[static_cast<std::size_t>(cell->dimension)];
            made.source = source;
            made.property = element.property;
        }
        std::vector<int>& rows = mesh.sections[section->second].nodes;
        rows.insert(rows.end(), element.nodes.begin(), end);
    }
    leaveOut(mesh.losses, "another-shape", others, "elements", " of another shape");
    leaveOut(mesh.losses, "elements-of-missing-nodes", incomplete, "elements",
             " of nodes that are not there");
    mesh.remarks.push_back({"oids-unknown", 1,
                            "the library does not return the OIDs of a Patran file: nodes and "
                            "elements have none"});
    return mesh;
}

}  // namespace kvocaeio::host
