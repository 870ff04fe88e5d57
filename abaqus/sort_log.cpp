/// The seven blocks of the normalisation's dump.
#include "abaqus/sort_log.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "abaqus/dump.h"
#include "abaqus/element_sets.h"

namespace kvocaeio::abaqus {

namespace {

void writeNodeIds(text::Writer& log, const RawModel& raw) {
    put(log, "--------------- Node ID Map-----------------\n");
    for (const int oid : raw.nodeBlock.ids)
        put(log, "Old ID = ", oid, " , New ID = ", raw.nodeOidMap.find(oid), "\n");
}

void writeElementIds(text::Writer& log, const RawModel& raw) {
    put(log, "--------------- Element ID Map-----------------\n");
    for (const ElemSection& section : raw.elemSections)
        for (const int oid : section.ids) {
            const auto [place, row] = raw.elemOidMap.find(oid);
            put(log, "Old ID = ", oid, " , MapData = (", std::size_t{place}, ", ", std::size_t{row},
                ")\n");
        }
}

void writeNodeBlock(text::Writer& log, const NodeBlock& block) {
    put(log, "-------- Node Data--------\n");
    for (std::size_t row = 0; row < block.ids.size(); ++row) {
        const double* const coord = &block.coords[3 * row];
        put(log, "New ID = ", row, " , Old ID = ", block.ids[row], " , (", coord[0], ", ", coord[1],
            ", ", coord[2], ")\n");
    }
}

void writeSections(text::Writer& log, std::string_view kind,
                   const std::vector<ElemSection>& sections) {
    put(log, "-------- ", kind, " Element Data--------\n");
    for (std::size_t s = 0; s < sections.size(); ++s) {
        const ElemSection& section = sections[s];
        put(log, "------- ", kind, " Element Section ", s, " --------\n");
        put(log, "Type = ", section.type, ", Elset = ", section.elset);
        put(log, ", Element Node Num = ", section.nodesPerElem, "\n");
        const int* node = section.nodes.data();
        for (std::size_t row = 0; row < section.ids.size(); ++row) {
            put(log, "New ID = ", row, " , Old ID = ", section.ids[row], " ,");
            for (int k = 0; k < section.nodesPerElem; ++k)
                put(log, " ", *node++);
            put(log, "\n");
        }
    }
}

void writeSets(text::Writer& log, const AbaqusModel& model) {
    put(log, "-------- Elset Data--------\n");
    int number = 0;
    for (const auto& [name, value] : model.elsetIndexMap) {
        put(log, "------- Elset Section ", number++, " --------\n");
        // The length is that of the name.
        put(log, "Elset name = ", name, ", len = ", name.size(), "\n");
        for (const IdRun& run : elemsAt(model.elsetElems, value))
            for (std::int64_t oid = run.first; oid <= run.last; oid += run.step)
                put(log, "  Elem id = ", static_cast<int>(oid), "\n");
    }
}

void writeLoadFaces(text::Writer& log, const std::vector<int>& faces) {
    put(log, "-------- Dload Data--------\n");
    put(log, "Face Elem Num = ", faces.size() / 4, "\n");
    for (std::size_t i = 0; i < faces.size(); i += 4)
        put(log, "Added face : (", faces[i], ", ", faces[i + 1], ", ", faces[i + 2], ", ",
            faces[i + 3], ")\n");
}

}  // namespace

void WriteSortLog(const AbaqusModel& model, const DebugFolder& folder) {
    const text::File file = folder.openDump("SortData.log");
    if (file == nullptr)
        return;
    text::Writer log(file.get());
    writeNodeIds(log, model);
    writeElementIds(log, model);
    writeNodeBlock(log, model.nodeBlock);
    writeSections(log, "Solid", model.solidSections);
    writeSections(log, "Shell", model.shellElemSections);
    writeSets(log, model);
    writeLoadFaces(log, model.dloadFaces);
}

}  // namespace kvocaeio::abaqus
