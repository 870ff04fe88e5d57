/// The smallest host: succeeds where the library reads the eight nodes of the deck.
#include <kvocaeio/abaqus.h>

int main(int argc, char** argv) {
    CKVOAbaqusReader reader;
    const bool imported = argc == 2 && reader.ImportInpFile(argv[1]);
    return imported && reader.GetNodeNum() == 8 ? 0 : 1;
}
