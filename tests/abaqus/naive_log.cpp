/// The plain import's dump of its tables.
#include <cstdarg>
#include <cstdio>

#include "abaqus/naive_import.h"

namespace kvocaeio::test {
namespace {

const std::string kRule(std::string(39, '=') + "\n");

std::string heading(const char* kind, std::size_t count) {
    std::string out = kRule;
    appendFormatted(out, "%s Section count = %d\n", kind, static_cast<int>(count));
    return out + kRule;
}

void appendSectionLine(std::string& out, const char* kind, std::size_t index) {
    appendFormatted(out, "----%s Section %d------\n", kind, static_cast<int>(index));
}

std::string nodePart(const NaiveImport& tables) {
    std::string out = kRule + "NSET = \n";
    for (std::size_t r = 0; r < tables.nodeIds.size(); ++r)
        appendFormatted(out, "ID = %d , (%lf, %lf, %lf)\n", tables.nodeIds[r], tables.coords[3 * r],
                        tables.coords[3 * r + 1], tables.coords[3 * r + 2]);
    return out;
}

std::string elementPart(const NaiveImport& tables) {
    std::string out = heading("Element", tables.elements.size());
    for (std::size_t s = 0; s < tables.elements.size(); ++s) {
        const NaiveElements& block = tables.elements[s];
        appendSectionLine(out, "Element", s);
        appendFormatted(out, "TYPE = %s , ELSET = %s\n", block.type.c_str(), block.elset.c_str());
        appendFormatted(out, "Nodes per element = %d\n", block.nodesPerElem);
        appendFormatted(out, "Element Num = %d , Total Node Num = %d\n",
                        static_cast<int>(block.ids.size()), static_cast<int>(block.nodes.size()));
        const std::size_t width = static_cast<std::size_t>(block.nodesPerElem);
        for (std::size_t e = 0; e < block.ids.size(); ++e) {
            appendFormatted(out, "ID = %d , ( ", block.ids[e]);
            const signed char shown = static_cast<signed char>(block.nodesPerElem);
            for (int n = 0; n < shown; ++n)
                appendFormatted(out, "%d ", block.nodes[e * width + static_cast<std::size_t>(n)]);
            out += ")\n";
        }
    }
    return out;
}

std::string shellPart(const NaiveImport& tables) {
    std::string out = heading("Shell", tables.shells.size());
    for (std::size_t s = 0; s < tables.shells.size(); ++s) {
        const NaiveShellSection& section = tables.shells[s];
        appendSectionLine(out, "Shell", s);
        appendFormatted(out, "material = %s , elset = %s\n", section.material.c_str(),
                        section.elset.c_str());
        appendFormatted(out, "thickness = %f\n", section.thickness);
    }
    return out;
}

std::string surfacePart(const NaiveImport& tables) {
    std::string out = heading("Surface", tables.surfaces.size());
    for (std::size_t s = 0; s < tables.surfaces.size(); ++s) {
        const NaiveSurface& surface = tables.surfaces[s];
        appendSectionLine(out, "Surface", s);
        appendFormatted(out, "type = %s , name = %s\n", surface.type.c_str(), surface.name.c_str());
        for (std::size_t i = 0; i < surface.items.size(); ++i)
            appendFormatted(out, "%s, %s\n", surface.items[i].c_str(), surface.faces[i].c_str());
    }
    return out;
}

std::string dloadPart(const NaiveImport& tables) {
    std::string out = heading("Dload", tables.dloads.size());
    for (std::size_t s = 0; s < tables.dloads.size(); ++s) {
        const NaiveDload& load = tables.dloads[s];
        appendSectionLine(out, "Dload", s);
        for (std::size_t i = 0; i < load.elemIDs.size(); ++i)
            appendFormatted(out, "elemID = %d , faceIdx = %s , value = %f\n", load.elemIDs[i],
                            load.faceIdx[i].c_str(), load.values[i]);
    }
    return out;
}

std::string elsetPart(const NaiveImport& tables) {
    std::string out = heading("Elset", tables.elsets.size());
    for (std::size_t s = 0; s < tables.elsets.size(); ++s) {
        const NaiveElset& set = tables.elsets[s];
        appendSectionLine(out, "Elset", s);
        appendFormatted(out, "Elset = %s , parameter = %s\n", set.name.c_str(),
                        set.parameter.c_str());
        if (set.parameter == "GENERATE") {
            appendFormatted(out, "%d, %d, %d\n", set.genStart, set.genEnd, set.genStep);
            continue;
        }
        for (const std::string& member : set.members)
            out += member + " ";
        out += "\n";
    }
    return out;
}

}  // namespace

void appendFormatted(std::string& out, const char* format, ...) {
    va_list values, again;
    va_start(values, format);
    va_copy(again, values);
    std::vector<char> text(static_cast<std::size_t>(std::vsnprintf(nullptr, 0, format, values)) +
                           1);
    std::vsnprintf(text.data(), text.size(), format, again);
    va_end(again);
    va_end(values);
    out += text.data();
}

std::string naiveDebugFolder(const std::string& deckPath) {
#if defined(_WIN32)
    const char* separators = "/\\:";
    const std::string folder = "\\debug";
#else
    const char* separators = "/";
    const std::string folder = "/debug";
#endif
    return deckPath.substr(0, deckPath.find_last_of(separators) + 1) + folder;
}

std::string naiveLog(NaiveImport& tables) {
    tables.printed +=
        "writing node section...\n"
        "writing element section...\n"
        "writing shell section...\n"
        "writing surface section...\n"
        "writing dload section...\n"
        "writing elset section...\n";
    return nodePart(tables) + elementPart(tables) + shellPart(tables) + surfacePart(tables) +
           dloadPart(tables) + elsetPart(tables);
}

}  // namespace kvocaeio::test
