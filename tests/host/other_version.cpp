/// A library of another version, as far as a program asks for it.
extern "C" int kvocaeio_version(void);

int kvocaeio_version(void) {
    return 2003004;
}
