/// The exported reader of flat arrays: its life, the import and the queries.
#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <utility>

#include "patran/flat_passes.h"
#include "text/file.h"
#include <kvocaeio/patran.h>

using namespace kvocaeio;

namespace {

// Sets free what `array` points at, if anything, and takes over another one.
template <class Value>
void replace(Value*& array, Value* by) {
    std::free(std::exchange(array, by));
}

// Elements keep node ids until they are handed out: a summary may count far more of them than there
// are, whose rows would be touched for nothing.
int indexOf(const int* nodeIdMap, int id) {
    return id == kUnknownNode ? 0 : nodeIdMap[id];
}

}  // namespace

CPatranReader::CPatranReader()
    : filePath(nullptr),
      nodeCount(0),
      elemCount(0),
      propertyCount(0),
      nodeIdMap(nullptr),
      vertices(nullptr),
      elemNodes(nullptr),
      elemTypes(nullptr),
      elemProperties(nullptr) {}

CPatranReader& CPatranReader::operator=(const CPatranReader&) = default;

CPatranReader::~CPatranReader() {
    std::free(nodeIdMap);
    std::free(vertices);
    std::free(elemNodes);
    std::free(elemTypes);
    std::free(elemProperties);
}

bool CPatranReader::ImportFromPatFile(const char* path) {
    if (path == nullptr)
        return false;
    filePath = path;
    nodeCount = elemCount = propertyCount = 0;
    const text::File file = text::openFile(path, "rb");
    if (file == nullptr) {
        std::printf("File Not Found : %s\n", path);
        return false;
    }
    try {
        IdMap ids(GetNodeDimension());
        FlatMesh mesh;
        readFlatMesh(file.get(), ids, mesh);
        replace(nodeIdMap, ids.release());
        replace(vertices, mesh.vertices.release());
        replace(elemNodes, mesh.elemNodes.release());
        replace(elemTypes, mesh.elemTypes.release());
        replace(elemProperties, mesh.elemProperties.release());
        nodeCount = mesh.nodeCount;
        elemCount = mesh.elemCount;
        propertyCount = mesh.propertyCount;
        return true;
    } catch (const std::exception&) {  // memory ran out
        return false;
    }
}

// NOLINTBEGIN(readability-const-return-type)
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-qualifiers"
#endif
const int CPatranReader::GetNodeDimension() {
    const text::File file = text::openFile(filePath, "rb");
    return file == nullptr ? 0 : findHighestNodeId(file.get());
}

const int CPatranReader::GetNodeCout() {
    return nodeCount;
}

const int CPatranReader::GetElemCount() {
    return elemCount;
}

const int CPatranReader::GetPropertyCount() {
    return propertyCount;
}
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
// NOLINTEND(readability-const-return-type)

bool CPatranReader::GetNode(int index, float& x, float& y, float& z) {
    if (index < 0 || index >= nodeCount)
        return false;
    const float* const row = vertices + 3 * text::asSize(index);
    x = row[0];
    y = row[1];
    z = row[2];
    return true;
}

bool CPatranReader::GetElement(int index, int& type, int& property, int* const nodes) {
    if (index < 0 || index >= elemCount)
        return false;
    const std::size_t row = text::asSize(index);
    type = elemTypes[row];
    property = elemProperties[row];
    const int* const ids = elemNodes + row * kNodesPerElement;
    std::transform(ids, ids + kNodesPerElement, nodes,
                   [this](int id) { return indexOf(nodeIdMap, id); });
    return true;
}

void CPatranReader::GetVertex(float (*coordinates)[3], int count) {
    for (int i = 0; i < std::min(count, nodeCount); ++i)
        std::copy_n(vertices + 3 * text::asSize(i), 3, coordinates[i]);
}

void CPatranReader::GetElemType(int* types, int count) {
    std::copy_n(elemTypes, text::asSize(std::min(count, elemCount)), types);
}

void CPatranReader::GetElemNode(int (*nodes)[8], int count) {
    for (int i = 0; i < std::min(count, elemCount); ++i) {
        const int* const ids = elemNodes + text::asSize(i) * kNodesPerElement;
        std::transform(ids, ids + kNodesPerElement, nodes[i],
                       [this](int id) { return indexOf(nodeIdMap, id); });
    }
}
