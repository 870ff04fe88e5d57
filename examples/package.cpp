#include <cstdio>

#include <kvocaeio/package.h>

int main(int argc, char** argv) {
    CKVOCadenceReader package;
    if (argc == 4) {  // TOOL FOLDER DESIGN
        package.SetExeFilePath(argv[1]);
        package.SetTempFilePath(argv[2]);
    }
    if (argc == 4 ? !package.ImportCadenceFile(argv[3]) : !package.Import3DIFile(argv[1]))
        return 1;
    char name[1024];
    int isBall;
    double center[3], size[5];
    unsigned color;
    for (int i = 0; package.GetComponentData(i, name, isBall, center, size, color); ++i)
        if (!isBall)
            std::printf("%s: %g x %g x %g mm\n", name, size[0], size[1], size[2]);
}
