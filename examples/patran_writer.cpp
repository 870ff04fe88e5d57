#include <kvocaeio/patran.h>

int main(int argc, char** argv) {
    CKVO_PATWriter_Bridge file;
    file.SetFilePath(argc == 2 ? argv[1] : "part.pat");
    file.SetNodeCount(4);
    file.SetNodeArray();
    for (int i = 0; i < 4; ++i)
        file.AddNode(i, i == 1, i == 2, i == 3);
    file.SetElemCount(1);
    int nodes[] = {1, 2, 3, 4};  // indices plus 1
    if (file.SetElemArray())
        file.AddElement(0, 4, nodes);
    return file.WriteFile() ? 0 : 1;
}
