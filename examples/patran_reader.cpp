#include <cstdio>

#include <kvocaeio/patran.h>

int main(int argc, char** argv) {
    CPatranReader file;
    if (argc != 2 || !file.ImportFromPatFile(argv[1]))
        return 1;
    int type, property, nodes[8];
    int counts[9] = {};
    for (int i = 0; file.GetElement(i, type, property, nodes); ++i)
        ++counts[type];
    std::printf("%d nodes, %d tetrahedra, %d hexahedra\n", file.GetNodeCout(), counts[5],
                counts[8]);
}
