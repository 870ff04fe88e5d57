/// Writes realistic inputs of any size, the same bytes for the same size.
#include <charconv>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "bench/abaqus_deck.h"
#include "text/file.h"
#include "text/format.h"

namespace {

using namespace kvocaeio;

struct Kind {
    std::string_view name;
    void (*write)(text::Writer& out, int size);
};

constexpr Kind kKinds[] = {
    {"abaqus-hex", bench::writeHexDeck},
    {"abaqus-tet", bench::writeTetDeck},
};

const Kind* findKind(std::string_view name) {
    for (const Kind& kind : kKinds)
        if (kind.name == name)
            return &kind;
    return nullptr;
}

// The largest deck whose node numbers still fit the columns.
constexpr int kLargestSize = 50'000'000;

int usage() {
    std::fputs("usage: kvocaeio_bench_generate KIND N FILE\nN elements; KIND is one of:\n", stderr);
    for (const Kind& kind : kKinds)
        std::fprintf(stderr, "  %s\n", kind.name.data());
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4)
        return usage();
    const Kind* kind = findKind(argv[1]);
    int size = 0;
    std::from_chars(argv[2], argv[2] + std::strlen(argv[2]), size);
    if (kind == nullptr || size < 1 || size > kLargestSize)
        return usage();
    const text::File file = text::openFile(argv[3], "wb");
    if (file == nullptr) {
        std::perror(argv[3]);
        return 1;
    }
    text::Writer out(file.get());
    kind->write(out, size);
    if (!out.flush()) {
        std::perror(argv[3]);
        return 1;
    }
}
