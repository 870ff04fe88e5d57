#include <cstdio>

#include <kvocaeio/patran.h>

int main(int argc, char** argv) {
    CKVO_PatranIO_Bridge file;
    if (argc != 2 || !file.ImportFromPatFile(argv[1]))
        return 1;
    int n[4], type;
    double a, b, c;
    for (int i = 0; i < file.GetElementCount(); ++i) {
        file.GetElementDataBase(i, &n[0], &n[1], &n[2], &n[3], &type, &a, &b, &c);
        if (type == 10)  // a bar: see the rules for types
            std::printf("bar %d %d, value %g\n", n[0], n[1], b);
    }
}
