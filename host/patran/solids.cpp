/// Solids of a Patran neutral file, for another format.
#include "patran/solids.h"

#include <algorithm>
#include <map>

#include "kind_counts.h"
#include "mesh_checks.h"
#include "patran/arrays.h"
#include "timed.h"
#include <kvocaeio/patran.h>

namespace kvocaeio::host {

SolidMesh takePatranSolids(const std::string& path, const MeshRequest& request) {
    refuseNormalised(request.normalised);
    CPatranReader reader;
    SolidMesh mesh;
    timed(request.progress, [&] { import(reader, path, mesh.imported); });
    requireMesh(static_cast<std::size_t>(std::max(0, reader.GetNodeCout())),
                static_cast<std::size_t>(std::max(0, reader.GetElemCount())),
                "a Patran neutral file");
    mesh.nodes.resize(static_cast<std::size_t>(std::max(0, reader.GetNodeCout())));
    mesh.nodeOids.resize(mesh.nodes.size());
    int row = 0;
    for (std::array<double, 3>& node : mesh.nodes) {
        const std::array<float, 3> place = nodeAt(reader, row++);
        std::copy(place.begin(), place.end(), node.begin());
    }
    std::map<int, std::size_t> sections;  // by property id
    KindCounts others;
    for (int i = 0; i < reader.GetElemCount(); ++i) {
        const ArrayElement element = elementAt(reader, i);
        const Shape& shape = shapeOf(element.shape);
        if (!shape.solid) {
            count(others, shape.name);
            continue;
        }
        const auto [section, isNew] = sections.emplace(element.property, sections.size());
        if (isNew)
            mesh.sections.push_back("property " + std::to_string(element.property));
        mesh.elements.push_back({section->second, shape.corners, element.nodes, 0});
    }
    leaveOut(mesh.losses, others);
    mesh.remarks.push_back({"oids-unknown", 1,
                            "the library does not return the OIDs of a Patran file: nodes and "
                            "elements are numbered from 1"});
    return mesh;
}

}  // namespace kvocaeio::host
