/// The choice between the source's OIDs and new ones.
#include "convert/oids.h"

#include <algorithm>
#include <numeric>

namespace kvocaeio::host {

namespace {

/// Whether each of `oids` is another number from 1 to `largest`.
bool canBeHeld(std::vector<int> oids, int largest) {
    std::sort(oids.begin(), oids.end());
    return oids.empty() || (oids.front() >= 1 && oids.back() <= largest &&
                            std::adjacent_find(oids.begin(), oids.end()) == oids.end());
}

/// Numbers `oids` from 1 where they must be.
void choose(std::vector<int>& oids, const MeshWriter& writer, const std::string& things,
            SolidMesh& mesh) {
    const auto count = static_cast<int>(oids.size());
    if (canBeHeld(oids, writer.largestOid == 0 ? count : writer.largestOid))
        return;
    const bool known = oids.front() != 0;
    std::iota(oids.begin(), oids.end(), 1);
    if (known)
        mesh.remarks.push_back({things + "-renumbered", oids.size(),
                                things + " are numbered from 1: the file cannot hold their OIDs"});
}

}  // namespace

void chooseOids(SolidMesh& mesh, const MeshWriter& writer) {
    choose(mesh.nodeOids, writer, "nodes", mesh);
    std::vector<int> oids;
    for (const SolidMesh::Element& element : mesh.elements)
        oids.push_back(element.oid);
    choose(oids, writer, "elements", mesh);
    for (std::size_t row = 0; row < oids.size(); ++row)
        mesh.elements[row].oid = oids[row];
}

}  // namespace kvocaeio::host
