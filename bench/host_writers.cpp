/// What a host does to write a mesh through the library.
#include "bench/host_writers.h"

#include <algorithm>
#include <array>

#include <kvocaeio/nastran.h>
#include <kvocaeio/patran.h>

namespace kvocaeio::bench {

namespace {

// The writers take arrays that they may change.
using Corners = std::array<int, 8>;

Corners cornersOf(std::span<const int> nodes) {
    Corners corners{};
    std::ranges::copy(nodes, corners.begin());
    return corners;
}

}  // namespace

bool writeNastranMesh(const char* path, const SolidMesh& mesh) {
    KVONASTRAN_Writer writer;
    writer.SetFilePath(path);
    forEachNode(mesh, [&](int id, std::span<const double, 3> coords) {
        writer.AddNode(id, coords[0], coords[1], coords[2]);
    });
    for (const SolidBlock& block : mesh.blocks)
        writer.AddSection(block.property, 0);
    forEachSolid(mesh, [&](int id, int property, std::span<const int> nodes) {
        writer.AddElement(id, property, static_cast<int>(nodes.size()), cornersOf(nodes).data());
    });
    return writer.EndWriting();
}

bool writePatranMesh(const char* path, const SolidMesh& mesh) {
    CKVO_PATWriter_Bridge writer;
    writer.SetFilePath(path);
    writer.SetNodeCount(countNodes(mesh));
    writer.SetNodeArray();
    forEachNode(mesh, [&](int id, std::span<const double, 3> coords) {
        writer.AddNode(id - 1, coords[0], coords[1], coords[2]);
    });
    writer.SetElemCount(countSolids(mesh));
    writer.SetElemArray();
    forEachSolid(mesh, [&](int id, int, std::span<const int> nodes) {
        writer.AddElement(id - 1, static_cast<int>(nodes.size()), cornersOf(nodes).data());
    });
    return writer.WriteFile();
}

}  // namespace kvocaeio::bench
