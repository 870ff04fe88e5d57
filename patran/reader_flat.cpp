/// The exported reader of flat arrays: its life, the import and the queries.
#include <algorithm>
#include <cstddef>
#include <cstdlib>

#include "patran/audit.h"
#include "patran/import.h"
#include "report/import_report.h"
#include "text/listened_file.h"
#include <kvocaeio/patran.h>

#if defined(__GNUC__)
#pragma GCC diagnostic ignored "-Wignored-qualifiers"  // part of the interface
#endif

using namespace kvocaeio;
using namespace kvocaeio::patran;

namespace {

template <class... Value>
void release(Value*&... arrays) {
    (std::free(arrays), ...);
    ((arrays = nullptr), ...);
}

// Elements keep node ids until they are handed out: a summary may count far more of them than there
// are, whose rows would be touched for nothing.
void copyIndices(const int* ids, const int* nodeIdMap, int* indices) {
    std::transform(ids, ids + kNodesPerElement, indices,
                   [=](int id) { return id == kUnknownNode ? 0 : nodeIdMap[id]; });
}

// How many rows a copy of `count` reads: no more than those counted and the spare one.
std::size_t rowsCopied(const void* array, int rows, int count) {
    return array == nullptr ? 0 : std::min(text::asSize(count), text::asSize(rows) + 1);
}

}  // namespace

CPatranReader::CPatranReader() = default;
CPatranReader& CPatranReader::operator=(const CPatranReader&) = default;

CPatranReader::~CPatranReader() {
    release(nodeIdMap, vertices, elemNodes, elemTypes, elemProperties);
}

bool CPatranReader::ImportFromPatFile(const char* path) {
    return ImportFromPatFile(path, nullptr);
}

bool CPatranReader::ImportFromPatFile(const char* path, CKVOImportReport* report) {
    IdMap nodeIds;
    FlatMesh mesh;
    const auto import = [&](const text::Listener& listener) {
        if (path == nullptr)
            return text::openFile(path, "rb", listener) != nullptr;  // false: it tells the listener
        filePath = path;
        nodeCount = elemCount = propertyCount = 0;
        release(nodeIdMap, vertices, elemNodes, elemTypes, elemProperties);
        return importFlat(path, listener, nodeIds, mesh);
    };
    const auto audit = [&](report::ImportReport& filled) { auditFlat(nodeIds, mesh, filled); };
    if (!report::runReported(report, import, audit))
        return false;
    nodeIdMap = nodeIds.release();
    vertices = mesh.vertices.release();
    elemNodes = mesh.elementNodes.release();
    elemTypes = mesh.elementTypes.release();
    elemProperties = mesh.elementProperties.release();
    nodeCount = mesh.nodeCount;
    elemCount = mesh.elementCount;
    propertyCount = mesh.propertyCount;
    return true;
}

// NOLINTBEGIN(readability-const-return-type)
const int CPatranReader::GetNodeDimension() {
    const text::File file = text::openFile(filePath, "rb");
    return file == nullptr ? 0 : findNodeDimension(file.get(), {});
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
    copyIndices(elemNodes + row * kNodesPerElement, nodeIdMap, nodes);
    return true;
}

void CPatranReader::GetVertex(float (*coordinates)[3], int count) {
    const std::size_t rows = rowsCopied(vertices, nodeCount, count);
    for (std::size_t row = 0; row < rows; ++row)
        std::copy_n(vertices + 3 * row, 3, coordinates[row]);
}

void CPatranReader::GetElemType(int* types, int count) {
    std::copy_n(elemTypes, rowsCopied(elemTypes, elemCount, count), types);
}

void CPatranReader::GetElemNode(int (*nodes)[8], int count) {
    const std::size_t rows = rowsCopied(elemNodes, elemCount, count);
    for (std::size_t row = 0; row < rows; ++row) {
        if (row < text::asSize(elemCount))
            copyIndices(elemNodes + row * kNodesPerElement, nodeIdMap, nodes[row]);
        else
            std::fill_n(nodes[row], kNodesPerElement, 0);  // even where a node has id 0
    }
}
