/// Writes the normalised mesh of an Abaqus deck as plain tables: tables DECK
#include <cstdio>

#include <kvocaeio/abaqus.h>

static void printSection(CKVOAbaqusReader& deck, CKVOAbaqusReader::ElemSecData& section) {
    std::printf("section %s, %d elements\n", section.elset, section.elemNum);
    CKVOAbaqusReader::ElemData element;
    if (!deck.GetElemSecElemBeginR(&section, &element))
        return;
    while (deck.GetElemSecElemNextR(&section, &element)) {
        for (int i = 0; i < element.nodeNum; ++i)
            std::printf(" %d", element.nodes[i]);
        std::printf("\n");
    }
}

int main(int argc, char** argv) {
    CKVOAbaqusReader deck;
    if (argc != 2 || !deck.ImportInpFile(argv[1])) {
        std::fprintf(stderr, "usage: tables DECK, which must be readable and writable\n");
        return 1;
    }
    deck.SortData();

    // Elements name nodes by their row in this table, from 0.
    std::printf("nodes\n");
    CKVOAbaqusReader::NodeData node;
    deck.GetNodeBegin();
    while (deck.GetNodeNext(&node))
        std::printf(" %d %g %g %g\n", node.id, node.coord[0], node.coord[1], node.coord[2]);

    // The walks over solids and shells share one cursor: first the one, then the other.
    CKVOAbaqusReader::ElemSecData section;
    if (deck.GetElemSolidSecBeginR())
        while (deck.GetElemSolidSecNextR(&section))
            printSection(deck, section);
    if (deck.GetElemShellSecBeginR())
        while (deck.GetElemShellSecNextR(&section))
            printSection(deck, section);
}
