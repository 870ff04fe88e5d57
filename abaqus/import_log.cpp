/// The six sections of the dump.
#include "abaqus/import_log.h"

#include <cstdint>
#include <cstdio>

#include "abaqus/import_state.h"
#include "text/file.h"
#include "text/format.h"

namespace kvocaeio {

namespace {

constexpr std::string_view kRule = "=======================================\n";

int asInt(std::size_t count) {
    return static_cast<int>(count);
}

void writeHead(text::Writer& log, std::string_view kind, std::size_t count) {
    log.text(kRule)
        .text(kind)
        .text(" Section count = ")
        .integer(asInt(count))
        .text("\n")
        .text(kRule);
}

void writeTitle(text::Writer& log, std::string_view kind, std::size_t index) {
    log.text("----").text(kind).text(" Section ").integer(asInt(index)).text("------\n");
}

void writeNodes(text::Writer& log, const NodeBlock& block) {
    log.text(kRule).text("NSET = ").text(block.nsetName).text("\n");
    for (std::size_t row = 0; row < block.ids.size(); ++row) {
        const double* coord = &block.coords[3 * row];
        log.text("ID = ").integer(block.ids[row]).text(" , (").fixed(coord[0]).text(", ");
        log.fixed(coord[1]).text(", ").fixed(coord[2]).text(")\n");
    }
}

void writeElements(text::Writer& log, const std::vector<ElemSection>& sections) {
    writeHead(log, "Element", sections.size());
    for (std::size_t i = 0; i < sections.size(); ++i) {
        const ElemSection& section = sections[i];
        writeTitle(log, "Element", i);
        log.text("TYPE = ").text(section.type).text(" , ELSET = ").text(section.elset).text("\n");
        log.text("Nodes per element = ").integer(section.nodesPerElem).text("\n");
        log.text("Element Num = ").integer(asInt(section.ids.size()));
        log.text(" , Total Node Num = ").integer(asInt(section.nodes.size())).text("\n");
        // The dump counts an element's nodes in a signed byte: of 128 nodes and more it shows what
        // is left of their number there.
        const auto shown = static_cast<std::int8_t>(section.nodesPerElem);
        const int* nodes = section.nodes.data();
        for (const int id : section.ids) {
            log.text("ID = ").integer(id).text(" , ( ");
            for (std::int8_t k = 0; k < shown; ++k)
                log.integer(nodes[k]).text(" ");
            log.text(")\n");
            nodes += section.nodesPerElem;
        }
    }
}

void writeShellSections(text::Writer& log, const std::vector<ShellSection>& sections) {
    writeHead(log, "Shell", sections.size());
    for (std::size_t i = 0; i < sections.size(); ++i) {
        writeTitle(log, "Shell", i);
        log.text("material = ").text(sections[i].material);
        log.text(" , elset = ").text(sections[i].elset).text("\n");
        log.text("thickness = ").fixed(sections[i].thickness).text("\n");
    }
}

void writeSurfaces(text::Writer& log, const std::vector<SurfaceSection>& surfaces) {
    writeHead(log, "Surface", surfaces.size());
    for (std::size_t i = 0; i < surfaces.size(); ++i) {
        const SurfaceSection& surface = surfaces[i];
        writeTitle(log, "Surface", i);
        log.text("type = ").text(surface.type).text(" , name = ").text(surface.name).text("\n");
        for (std::size_t k = 0; k < surface.items.size(); ++k)
            log.text(surface.items[k]).text(", ").text(surface.faces[k]).text("\n");
    }
}

void writeLoads(text::Writer& log, const std::vector<DloadSection>& loads) {
    writeHead(log, "Dload", loads.size());
    for (std::size_t i = 0; i < loads.size(); ++i) {
        const DloadSection& load = loads[i];
        writeTitle(log, "Dload", i);
        for (std::size_t k = 0; k < load.elemIDs.size(); ++k) {
            log.text("elemID = ").integer(load.elemIDs[k]).text(" , faceIdx = ");
            log.text(load.faceIdx[k]).text(" , value = ").fixed(load.values[k]).text("\n");
        }
    }
}

void writeSets(text::Writer& log, const std::vector<ElsetSection>& sets) {
    writeHead(log, "Elset", sets.size());
    for (std::size_t i = 0; i < sets.size(); ++i) {
        const ElsetSection& set = sets[i];
        writeTitle(log, "Elset", i);
        log.text("Elset = ").text(set.name).text(" , parameter = ").text(set.parameter).text("\n");
        if (set.parameter == "GENERATE") {
            log.integer(set.genStart).text(", ").integer(set.genEnd).text(", ");
            log.integer(set.genStep);
        } else {
            for (const std::string& member : set.members)
                log.text(member).text(" ");
        }
        log.text("\n");
    }
}

}  // namespace

void writeImportLog(const AbaqusModel& model) {
    const std::string path = debugFilePath(kImportLogName);
    std::printf("log file path = %s\n", path.c_str());
    const text::File file = text::openFile(path.c_str(), "w");
    if (file == nullptr)
        return;
    text::Writer log(file.get());
    std::fputs("writing node section...\n", stdout);
    writeNodes(log, model.nodeBlock);
    std::fputs("writing element section...\n", stdout);
    writeElements(log, model.elemSections);
    std::fputs("writing shell section...\n", stdout);
    writeShellSections(log, model.shellSections);
    std::fputs("writing surface section...\n", stdout);
    writeSurfaces(log, model.surfaces);
    std::fputs("writing dload section...\n", stdout);
    writeLoads(log, model.dloads);
    std::fputs("writing elset section...\n", stdout);
    writeSets(log, model.elsets);
}

}  // namespace kvocaeio
