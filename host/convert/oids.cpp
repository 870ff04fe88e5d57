/// The choice between the source's OIDs and new ones.
#include "convert/oids.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace kvocaeio::host {

namespace {

/// Whether each of `oids` is another number from 1 to `largest`.
bool canBeHeld(std::vector<int> oids, int largest) {
    // Nearly every file lists its OIDs in ascending order.
    if (!std::is_sorted(oids.begin(), oids.end()))
        std::sort(oids.begin(), oids.end());
    return oids.empty() || (oids.front() >= 1 && oids.back() <= largest &&
                            std::adjacent_find(oids.begin(), oids.end()) == oids.end());
}

void remarkNewOids(std::vector<Note>& remarks, const std::string& things, std::size_t number) {
    remarks.push_back({things + "-renumbered", number,
                       things + " are numbered from 1: the file cannot hold their OIDs"});
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
        remarkNewOids(mesh.remarks, things, oids.size());
}

std::vector<bool> usedNodes(const Mesh& mesh) {
    std::vector<bool> used(mesh.nodes(), false);
    for (const MeshSection& section : mesh.sections)
        for (const int row : section.nodes)
            used[static_cast<std::size_t>(row)] = true;
    return used;
}

/// The rows of `oids` that go, so that each OID is another number from 1 on: none that is `used`.
std::vector<bool> rowsInTheWay(const std::vector<int>& oids, const std::vector<bool>& used) {
    std::vector<std::size_t> rows(oids.size());
    std::iota(rows.begin(), rows.end(), std::size_t{0});
    // Of each OID first those that are used, then the last one, which is what the OID means.
    std::sort(rows.begin(), rows.end(), [&](std::size_t a, std::size_t b) {
        return std::tuple(oids[a], !used[a], b) < std::tuple(oids[b], !used[b], a);
    });
    std::vector<bool> inTheWay(oids.size(), false);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const int oid = oids[rows[i]];
        const bool isRepeated = i != 0 && oids[rows[i - 1]] == oid;
        inTheWay[rows[i]] = !used[rows[i]] && (oid < 1 || isRepeated);
    }
    return inTheWay;
}

/// Takes the nodes of `rows` out of the mesh.
void dropNodes(const std::vector<bool>& rows, Mesh& mesh) {
    std::vector<int> newRows(mesh.nodes(), -1);
    std::size_t left = 0;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (rows[row])
            continue;
        newRows[row] = static_cast<int>(left);
        mesh.nodeOids[left] = mesh.nodeOids[row];
        std::copy_n(mesh.places.begin() + static_cast<std::ptrdiff_t>(3 * row), 3,
                    mesh.places.begin() + static_cast<std::ptrdiff_t>(3 * left++));
    }
    leaveOut(mesh.losses, "unused-nodes", rows.size() - left, "nodes",
             " that no element has, with an OID that is none or another node's");
    mesh.nodeOids.resize(left);
    mesh.places.resize(3 * left);
    mesh.phantoms.clear();
    for (MeshSection& section : mesh.sections)
        for (int& row : section.nodes)
            row = newRows[static_cast<std::size_t>(row)];
}

void chooseNodeOids(Mesh& mesh, int largest) {
    if (!mesh.nodeOids.empty()) {
        if (canBeHeld(mesh.nodeOids, largest))
            return;
        dropNodes(rowsInTheWay(mesh.nodeOids, usedNodes(mesh)), mesh);
        if (canBeHeld(mesh.nodeOids, largest))
            return;
        remarkNewOids(mesh.remarks, "nodes", mesh.nodes());
    }
    mesh.nodeOids.resize(mesh.nodes());
    std::iota(mesh.nodeOids.begin(), mesh.nodeOids.end(), 1);
}

void chooseElementOids(Mesh& mesh, int largest) {
    std::vector<int> known;
    for (const MeshSection& section : mesh.sections)
        known.insert(known.end(), section.oids.begin(), section.oids.end());
    const int top = known.empty() ? 0 : *std::max_element(known.begin(), known.end());
    const std::size_t others = mesh.elements() - known.size();
    int next = top + 1;
    if (!canBeHeld(known, largest) || others > static_cast<std::size_t>(largest - top)) {
        remarkNewOids(mesh.remarks, "elements", mesh.elements());
        for (MeshSection& section : mesh.sections)
            section.oids.clear();
        next = 1;
    }
    for (MeshSection& section : mesh.sections)
        if (section.oids.empty())
            for (std::size_t row = 0; row < section.elements(); ++row)
                section.oids.push_back(next++);
}

}  // namespace

void chooseOids(Mesh& mesh, int largest) {
    chooseNodeOids(mesh, largest);
    chooseElementOids(mesh, largest);
}

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
