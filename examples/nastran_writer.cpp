#include <kvocaeio/nastran.h>

int main(int argc, char** argv) {
    KVONASTRAN_Writer deck;
    if (argc != 2 || !deck.SetFilePath(argv[1], "mm"))
        return 1;
    int nodes[] = {1, 2, 3, 4};
    for (int i = 0; i < 4; ++i)
        deck.AddNode(nodes[i], i == 1, i == 2, i == 3);
    deck.AddSection(1, 0);
    deck.AddElement(1, 1, 4, nodes);
    return deck.EndWriting() ? 0 : 1;
}
