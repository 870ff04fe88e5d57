/// The six sections of the dump.
#include "abaqus/import_log.h"

#include <cstdint>
#include <cstdio>

#include "abaqus/dump.h"

namespace kvocaeio::abaqus {

namespace {

constexpr std::string_view kRule = "=======================================\n";

void writeNodes(text::Writer& log, const NodeBlock& block) {
    put(log, kRule, "NSET = ", block.nsetName, "\n");
    const double* coord = block.coords.data();
    for (const int id : block.ids) {
        put(log, "ID = ", id, " , (", coord[0], ", ", coord[1], ", ", coord[2], ")\n");
        coord += 3;
    }
}

// Says what is written, then writes the head of a kind of section and all sections, each after its
// title.
template <class Section>
void writeSections(text::Writer& log, const char* said, std::string_view kind,
                   const std::vector<Section>& sections,
                   void (*writeSection)(text::Writer& log, const Section& section)) {
    std::printf("writing %s section...\n", said);
    put(log, kRule, kind, " Section count = ", sections.size(), "\n", kRule);
    for (std::size_t i = 0; i < sections.size(); ++i) {
        put(log, "----", kind, " Section ", i, "------\n");
        writeSection(log, sections[i]);
    }
}

void writeElements(text::Writer& log, const ElemSection& section) {
    put(log, "TYPE = ", section.type, " , ELSET = ", section.elset, "\n");
    put(log, "Nodes per element = ", section.nodesPerElem, "\n");
    put(log, "Element Num = ", section.ids.size());
    put(log, " , Total Node Num = ", section.nodes.size(), "\n");
    // The dump counts an element's nodes in a signed byte: of 128 nodes and more it shows what is
    // left of their number there.
    const auto shown = static_cast<std::int8_t>(section.nodesPerElem);
    const int* nodes = section.nodes.data();
    for (const int id : section.ids) {
        put(log, "ID = ", id, " , ( ");
        for (std::int8_t k = 0; k < shown; ++k)
            put(log, nodes[k], " ");
        put(log, ")\n");
        nodes += section.nodesPerElem;
    }
}

void writeShellSection(text::Writer& log, const ShellSection& section) {
    put(log, "material = ", section.material, " , elset = ", section.elset, "\n");
    put(log, "thickness = ", section.thickness, "\n");
}

void writeSurface(text::Writer& log, const SurfaceSection& surface) {
    put(log, "type = ", surface.type, " , name = ", surface.name, "\n");
    for (std::size_t k = 0; k < surface.items.size(); ++k)
        put(log, surface.items[k], ", ", surface.faces[k], "\n");
}

void writeLoads(text::Writer& log, const DloadSection& load) {
    for (std::size_t k = 0; k < load.elemIDs.size(); ++k)
        put(log, "elemID = ", load.elemIDs[k], " , faceIdx = ", load.faceIdx[k],
            " , value = ", load.values[k], "\n");
}

void writeSet(text::Writer& log, const ElsetSection& set) {
    put(log, "Elset = ", set.name, " , parameter = ", set.parameter, "\n");
    if (set.parameter == "GENERATE")
        put(log, set.genStart, ", ", set.genEnd, ", ", set.genStep);
    else
        for (const std::string& member : set.members)
            put(log, member, " ");
    put(log, "\n");
}

}  // namespace

void writeImportLog(const AbaqusModel& model, const DebugFolder& folder) {
    const text::File file = folder.openDump(kImportLogName);
    if (file == nullptr)
        return;
    text::Writer log(file.get());
    std::fputs("writing node section...\n", stdout);
    writeNodes(log, model.nodeBlock);
    writeSections(log, "element", "Element", model.elemSections, writeElements);
    writeSections(log, "shell", "Shell", model.shellSections, writeShellSection);
    writeSections(log, "surface", "Surface", model.surfaces, writeSurface);
    writeSections(log, "dload", "Dload", model.dloads, writeLoads);
    writeSections(log, "elset", "Elset", model.elsets, writeSet);
}

}  // namespace kvocaeio::abaqus
