/// The exported reader of lists: its life, the import and the queries.
#include <cstddef>
#include <new>

#include "patran/patran_io.h"
#include "text/file.h"
#include <kvocaeio/patran.h>

using kvocaeio::CKVO_PatranIO;

namespace {

// Types of elements that have none of their own.
constexpr int kNoSuchElement = 13;
constexpr int kNoSuchProperty = 14;

template <class Char>
bool importFile(CKVO_PatranIO* mesh, const Char* path) {
    const kvocaeio::text::File file = kvocaeio::text::openFile(path, "rb");
    return mesh != nullptr && file != nullptr && mesh->ReadPackets(file.get());
}

template <class List>
bool holds(const List& list, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < list.size();
}

}  // namespace

CKVO_PatranIO_Bridge::CKVO_PatranIO_Bridge() : reader(nullptr) {
    try {
        reader = new CKVO_PatranIO;
    } catch (const std::bad_alloc&) {
    }
}

CKVO_PatranIO_Bridge::CKVO_PatranIO_Bridge(const CKVO_PatranIO_Bridge&) = default;
CKVO_PatranIO_Bridge& CKVO_PatranIO_Bridge::operator=(const CKVO_PatranIO_Bridge&) = default;

CKVO_PatranIO_Bridge::~CKVO_PatranIO_Bridge() {
    delete reader;
}

bool CKVO_PatranIO_Bridge::ImportFromPatFile(const char* path) {
    return importFile(reader, path);
}

bool CKVO_PatranIO_Bridge::_wImportFromPatFile(const wchar_t* path) {
    return importFile(reader, path);
}

int CKVO_PatranIO_Bridge::GetNodeCount() const {
    return reader == nullptr ? 0 : static_cast<int>(reader->nodes.size());
}

int CKVO_PatranIO_Bridge::GetElementCount() const {
    return reader == nullptr ? 0 : static_cast<int>(reader->elements.size());
}

void CKVO_PatranIO_Bridge::GetNodeCoordinate(int index, float* x, float* y, float* z) {
    *x = *y = *z = 0.0F;
    if (reader == nullptr || !holds(reader->nodes, index))
        return;
    const auto& node = reader->nodes[static_cast<std::size_t>(index)];
    *x = node[0];
    *y = node[1];
    *z = node[2];
}

void CKVO_PatranIO_Bridge::GetElementDataBase(int index, int* node1, int* node2, int* node3,
                                              int* node4, int* type, double* valueA, double* valueB,
                                              double* valueC) {
    *node1 = *node2 = *node3 = *node4 = 0;
    *type = kNoSuchElement;
    *valueA = *valueB = *valueC = 0.0;
    if (reader == nullptr || index >= reader->elementCount || !holds(reader->elements, index))
        return;
    const auto row = static_cast<std::size_t>(index);
    const auto& corners = reader->elements[row];
    *node1 = corners[0];
    *node2 = corners[1];
    *node3 = corners[2];
    *node4 = corners[3];
    if (reader->propertyCount == 0) {
        *type = reader->elementShapes[row];
        return;
    }
    const int property = reader->elementPropertyIds[row];
    if (!holds(reader->propertyTypes, property)) {
        *type = kNoSuchProperty;
        return;
    }
    *type = reader->propertyTypes.at(property);
    *valueA = reader->propertyValueA.at(property);
    *valueB = reader->propertyValueB.at(property);
    *valueC = reader->propertyValueC.at(property);
}
