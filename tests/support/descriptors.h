/// File descriptors by the same names on every platform.
#pragma once

#include <cstdio>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace kvocaeio::test {

#if defined(_WIN32)
inline int duplicate(int descriptor) {
    return _dup(descriptor);
}
inline void redirect(int from, int to) {
    _dup2(from, to);
}
inline void closeDescriptor(int descriptor) {
    _close(descriptor);
}
inline int descriptorOf(std::FILE* file) {
    return _fileno(file);
}
#else
inline int duplicate(int descriptor) {
    return dup(descriptor);
}
inline void redirect(int from, int to) {
    dup2(from, to);
}
inline void closeDescriptor(int descriptor) {
    close(descriptor);
}
inline int descriptorOf(std::FILE* file) {
    return fileno(file);
}
#endif

}  // namespace kvocaeio::test
