#include <cstdio>

#include <kvocaeio/abaqus.h>

int main(int argc, char** argv) {
    CKVOAbaqusReader deck;
    if (argc != 2 || !deck.ImportInpFile(argv[1]))
        return 1;
    deck.SortData();
    std::printf("%d nodes, %d sections of solids, %d of shells\n", deck.GetNodeNum(),
                deck.GetElemSolidSecNumR(), deck.GetElemShellSecNumR());
}
