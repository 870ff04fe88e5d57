#include <cstdio>

#include <kvocaeio/abaqus.h>

int main(int argc, char** argv) {
    CKVOAbaqusReader deck;
    if (argc != 2 || !deck.ImportInpFile(argv[1]))
        return 1;
    deck.SortData();
    CKVOAbaqusReader::ElemSecData section;
    if (deck.GetElemSolidSecBeginR())
        while (deck.GetElemSolidSecNextR(&section))
            std::printf("%s: %d elements, %d nodes each\n", section.elset, section.elemNum,
                        section.nodesPerElem);
}
