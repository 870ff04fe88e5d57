/// The seven blocks of the normalisation's dump.
#include "abaqus/sort_log.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "abaqus/element_sets.h"
#include "abaqus/import_state.h"
#include "text/file.h"
#include "text/format.h"

namespace kvocaeio {

namespace {

int asInt(std::size_t number) {
    return static_cast<int>(number);
}

void writeNodeIds(text::Writer& log, const RawModel& raw) {
    log.text("--------------- Node ID Map-----------------\n");
    for (const int oid : raw.nodeBlock.ids) {
        log.text("Old ID = ").integer(oid).text(" , New ID = ");
        log.integer(raw.nodeOidMap.find(oid)).text("\n");
    }
}

void writeElementIds(text::Writer& log, const RawModel& raw) {
    log.text("--------------- Element ID Map-----------------\n");
    for (const ElemSection& section : raw.elemSections)
        for (const int oid : section.ids) {
            const ElemLocation location = raw.elemOidMap.find(oid);
            log.text("Old ID = ").integer(oid).text(" , MapData = (");
            log.integer(asInt(location.section)).text(", ");
            log.integer(asInt(location.row)).text(")\n");
        }
}

void writeNodes(text::Writer& log, const NodeBlock& block) {
    log.text("-------- Node Data--------\n");
    for (std::size_t row = 0; row < block.ids.size(); ++row) {
        const double* const coord = &block.coords[3 * row];
        log.text("New ID = ").integer(asInt(row)).text(" , Old ID = ").integer(block.ids[row]);
        log.text(" , (").fixed(coord[0]).text(", ").fixed(coord[1]).text(", ").fixed(coord[2]);
        log.text(")\n");
    }
}

void writeSections(text::Writer& log, std::string_view kind,
                   const std::vector<ElemSection>& sections) {
    log.text("-------- ").text(kind).text(" Element Data--------\n");
    for (std::size_t s = 0; s < sections.size(); ++s) {
        const ElemSection& section = sections[s];
        log.text("------- ").text(kind).text(" Element Section ").integer(asInt(s));
        log.text(" --------\n");
        log.text("Type = ").text(section.type).text(", Elset = ").text(section.elset);
        log.text(", Element Node Num = ").integer(section.nodesPerElem).text("\n");
        const int* node = section.nodes.data();
        for (std::size_t row = 0; row < section.ids.size(); ++row) {
            log.text("New ID = ").integer(asInt(row)).text(" , Old ID = ");
            log.integer(section.ids[row]).text(" ,");
            for (int k = 0; k < section.nodesPerElem; ++k)
                log.text(" ").integer(*node++);
            log.text("\n");
        }
    }
}

void writeSets(text::Writer& log, const AbaqusModel& model) {
    log.text("-------- Elset Data--------\n");
    int number = 0;
    for (const auto& [name, value] : model.elsetIndexMap) {
        log.text("------- Elset Section ").integer(number++).text(" --------\n");
        // The length is that of the name.
        log.text("Elset name = ").text(name).text(", len = ").integer(asInt(name.size()));
        log.text("\n");
        for (const IdRun& run : elemsAt(model.elsetElems, value))
            for (std::int64_t oid = run.first; oid <= run.last; oid += run.step)
                log.text("  Elem id = ").integer(static_cast<int>(oid)).text("\n");
    }
}

void writeLoadFaces(text::Writer& log, const std::vector<int>& faces) {
    log.text("-------- Dload Data--------\n");
    log.text("Face Elem Num = ").integer(asInt(faces.size() / 4)).text("\n");
    for (std::size_t i = 0; i < faces.size(); i += 4) {
        log.text("Added face : (").integer(faces[i]).text(", ").integer(faces[i + 1]);
        log.text(", ").integer(faces[i + 2]).text(", ").integer(faces[i + 3]).text(")\n");
    }
}

}  // namespace

void WriteSortLog(const AbaqusModel& model) {
    const std::string path = debugFilePath("SortData.log");
    std::printf("log file path = %s\n", path.c_str());
    const text::File file = text::openFile(path.c_str(), "w");
    if (file == nullptr)
        return;
    text::Writer log(file.get());
    writeNodeIds(log, model);
    writeElementIds(log, model);
    writeNodes(log, model.nodeBlock);
    writeSections(log, "Solid", model.solidSections);
    writeSections(log, "Shell", model.shellElemSections);
    writeSets(log, model);
    writeLoadFaces(log, model.dloadFaces);
}

}  // namespace kvocaeio
