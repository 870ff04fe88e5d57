/// Prints what the Abaqus reader finds in a deck, or in the tidy one that is made of it.
#include <cstdio>
#include <cstring>
#include <string>

#include <kvocaeio/abaqus.h>
#include <kvocaeio/tidy.h>

namespace {

void printNodes(CKVOAbaqusReader& deck, std::FILE* out) {
    CKVOAbaqusReader::NodeData node;
    if (deck.GetNodeBegin())
        while (deck.GetNodeNext(&node))
            std::fprintf(out, "N %d %.17g %.17g %.17g\n", node.id, node.coord[0], node.coord[1],
                         node.coord[2]);
}

void printElements(CKVOAbaqusReader& deck, std::FILE* out) {
    CKVOAbaqusReader::ElemSecData section;
    int id = 0;
    int* nodes = nullptr;
    if (!deck.GetElemSecBegin())
        return;
    while (deck.GetElemSecNext(&section)) {
        std::fprintf(out, "X %s\n", section.elset);
        while (section.geometryType != 0 && deck.GetElemSecElemNext(&section, &id, &nodes)) {
            std::fprintf(out, "E %d %d", section.geometryType, id);
            for (int i = 0; i < section.nodesPerElem; ++i)
                std::fprintf(out, " %d", nodes[i]);
            std::fputc('\n', out);
        }
    }
}

// A line for each element of a section of the normalised mesh, or for each face.
void printSorted(CKVOAbaqusReader& deck, CKVOAbaqusReader::ElemSecData& section, std::FILE* out) {
    const bool isLoad = std::strcmp(section.elset, "Dload_Shell") == 0;
    const bool isSurface = std::strcmp(section.elset, "Surface_Shell") == 0;
    CKVOAbaqusReader::ElemData face;
    if (!deck.GetElemSecElemBeginR(&section, &face))
        return;
    while (deck.GetElemSecElemNextR(&section, &face)) {
        std::fputs(isLoad ? "D" : isSurface ? "F" : "S", out);
        for (int i = 0; (isLoad || isSurface) && i < face.nodeNum; ++i)
            std::fprintf(out, " %d", face.nodes[i]);
        std::fputc('\n', out);
    }
}

void printTables(CKVOAbaqusReader& deck, std::FILE* out) {
    printNodes(deck, out);
    printElements(deck, out);
    CKVOAbaqusReader::ShellSecData shell;
    if (deck.GetShellSecBegin())
        while (deck.GetShellSecNext(&shell))
            std::fprintf(out, "T %.17g %s\n", shell.thickness, shell.elset);
    CKVOAbaqusReader::ElemSecData section;
    if (deck.GetElemSolidSecBeginR())
        while (deck.GetElemSolidSecNextR(&section))
            printSorted(deck, section, out);
    if (deck.GetElemShellSecBeginR())
        while (deck.GetElemShellSecNextR(&section))
            printSorted(deck, section, out);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3)
        return 2;
    std::string path = argv[1];
    if (argc > 3) {
        CKVODeckTidy tidy;
        if (!tidy.Tidy(argv[1], argv[3], CKVODeckTidy::kAbaqus, nullptr))
            return 1;
        path = argv[3];
    }
    CKVOAbaqusReader deck;
    if (!deck.ImportInpFile(path.c_str()))
        return 1;
    deck.SortData();
    std::FILE* const out = std::fopen(argv[2], "w");
    if (out == nullptr)
        return 1;
    printTables(deck, out);
    return std::fclose(out) == 0 ? 0 : 1;
}
