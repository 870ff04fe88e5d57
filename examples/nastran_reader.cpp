#include <cstdio>

#include <kvocaeio/nastran.h>

int main(int argc, char** argv) {
    KVONASTRAN_Reader deck;
    if (argc != 2 || !deck.SetFilePath(argv[1]))
        return 1;
    const int* element = deck.GetElemVector();
    int elements = 0;
    for (int row = 0; row < deck.GetElemCout(); ++row, element += 9)
        elements += element[0] != 0;  // the row of a number that the deck does not use is zero
    const int* section = deck.GetSectionVector();
    for (int row = 0; row < deck.GetSectionCout(); ++row, section += 3)
        std::printf("property %d: material %d, value %d\n", section[0], section[1], section[2]);
    std::printf("%d elements\n", elements);
}
