/// Fuzz target: any bytes as a deck, imported, walked, sorted and walked again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

#include "fuzz/long_numbers.h"
#include "fuzz/reported.h"
#include "fuzz/silence.h"
#include "support/files.h"
#include <kvocaeio/abaqus.h>

namespace {

using kvocaeio::test::hasLongNumber;
using kvocaeio::test::walkReport;

// Every value handed out goes in here, so that none is left unread.
volatile double seen = 0.0;

void walkRawTables(CKVOAbaqusReader& reader) {
    CKVOAbaqusReader::NodeData node{};
    for (reader.GetNodeBegin(); reader.GetNodeNext(&node);)
        seen = node.id + node.coord[0] + node.coord[1] + node.coord[2];
    CKVOAbaqusReader::ElemSecData section{};
    for (reader.GetElemSecBegin(); reader.GetElemSecNext(&section);) {
        seen = section.elset[sizeof section.elset - 1];
        int id = 0;
        int* nodes = nullptr;
        while (reader.GetElemSecElemNext(&section, &id, &nodes)) {
            int first = 0;
            CKVOAbaqusReader::ElemData element{};
            element.nodes = &first;
            seen = reader.GetElemNodesByOID(id, &element) ? first : 0;
            for (int k = 0; k < section.nodesPerElem; ++k) {
                double coord[3] = {};
                CKVOAbaqusReader::NodeData found{};
                found.coord = coord;
                seen = reader.GetNodeDataByOID(nodes[k], &found) + coord[0];
            }
        }
    }
    CKVOAbaqusReader::ShellSecData shell{};
    for (reader.GetShellSecBegin(); reader.GetShellSecNext(&shell);)
        seen = shell.thickness;
}

void walkElements(CKVOAbaqusReader& reader, CKVOAbaqusReader::ElemSecData& section) {
    CKVOAbaqusReader::ElemData element{};
    if (!reader.GetElemSecElemBeginR(&section, &element))
        return;
    while (reader.GetElemSecElemNextR(&section, &element))
        for (int k = 0; k < element.nodeNum; ++k) {
            const int node = element.nodes[k];
            if (node < 0 || node >= reader.GetNodeNum())
                std::abort();
        }
}

void walkSortedTables(CKVOAbaqusReader& reader) {
    CKVOAbaqusReader::ElemSecData section{};
    for (reader.GetElemSolidSecBeginR(); reader.GetElemSolidSecNextR(&section);)
        walkElements(reader, section);
    for (reader.GetElemShellSecBeginR(); reader.GetElemShellSecNextR(&section);)
        walkElements(reader, section);
}

// A generated set may name more elements than a fuzzer should be made to hold: its rows are real
// memory, by design.
constexpr std::size_t kDigitsOfSmallNumbers = 5;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool silent = kvocaeio::test::silence();
    static const kvocaeio::test::TempFolder folder;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::string path = folder.write("deck.inp", bytes);
    CKVOAbaqusReader reader;
    CKVOImportReport report;
    if (!silent || !reader.ImportInpFile(path.c_str(), &report))
        std::abort();
    walkReport(report, true);
    walkRawTables(reader);
    // Twice, since the second call builds on what the first has left.
    for (int call = 0; call < 2 && !hasLongNumber(bytes, kDigitsOfSmallNumbers); ++call) {
        try {
            reader.SortData(call == 0 ? &report : nullptr);
        } catch (const std::length_error&) {  // a generated set that ends before it starts
        }
        walkReport(report, true);
        walkSortedTables(reader);
    }
    return 0;
}
