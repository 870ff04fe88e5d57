/// The exported reader of lists: its life, the import and the queries.
#include <array>
#include <cstddef>
#include <new>

#include "patran/audit.h"
#include "patran/element_values.h"
#include "patran/import.h"
#include "report/import_report.h"
#include "text/listened_file.h"
#include <kvocaeio/patran.h>

using namespace kvocaeio;
using namespace kvocaeio::patran;

namespace {

template <class Char>
bool importFile(CKVO_PatranIO* reader, const Char* path, const text::Listener& listener) {
    if (reader == nullptr)
        listener.note(text::FileFinding::kOutOfMemory, {});
    const text::File file = text::openFile(path, "rb", listener);
    return reader != nullptr && file != nullptr && reader->ReadPackets(file.get(), listener);
}

template <class Char>
bool importReported(CKVO_PatranIO* reader, const Char* path, CKVOImportReport* report) {
    return report::runReported(
        report, [&](const auto& listener) { return importFile(reader, path, listener); },
        [&](auto& filled) { countLists(reader->mesh, filled); });
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
    return importFile(reader, path, {});
}

bool CKVO_PatranIO_Bridge::_wImportFromPatFile(const wchar_t* path) {
    return importFile(reader, path, {});
}

bool CKVO_PatranIO_Bridge::ImportFromPatFile(const char* path, CKVOImportReport* report) {
    return importReported(reader, path, report);
}

bool CKVO_PatranIO_Bridge::_wImportFromPatFile(const wchar_t* path, CKVOImportReport* report) {
    return importReported(reader, path, report);
}

int CKVO_PatranIO_Bridge::GetNodeCount() const {
    return reader == nullptr ? 0 : static_cast<int>(reader->mesh.nodes.size());
}

int CKVO_PatranIO_Bridge::GetElementCount() const {
    return reader == nullptr ? 0 : static_cast<int>(reader->mesh.elements.size());
}

void CKVO_PatranIO_Bridge::GetNodeCoordinate(int index, float* x, float* y, float* z) {
    *x = *y = *z = 0.0F;
    if (reader == nullptr || !holds(reader->mesh.nodes, index))
        return;
    const std::array<float, 3>& node = reader->mesh.nodes[static_cast<std::size_t>(index)];
    *x = node[0];
    *y = node[1];
    *z = node[2];
}

void CKVO_PatranIO_Bridge::GetElementDataBase(int index, int* node1, int* node2, int* node3,
                                              int* node4, int* type, double* valueA, double* valueB,
                                              double* valueC) {
    ElementValues element;
    std::array<int, 4> corners{};
    if (reader != nullptr && holds(reader->mesh.elements, index)) {
        const auto row = static_cast<std::size_t>(index);
        element = valuesOf(reader->mesh, row);
        if (element.isCounted)
            corners = reader->mesh.elements[row];
    }
    *node1 = corners[0];
    *node2 = corners[1];
    *node3 = corners[2];
    *node4 = corners[3];
    *type = element.type;
    *valueA = element.values[0];
    *valueB = element.values[1];
    *valueC = element.values[2];
}
