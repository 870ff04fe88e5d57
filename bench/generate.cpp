/// Writes realistic inputs of any size, the same bytes for the same size.
#include <charconv>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "bench/inputs.h"
#include "text/file.h"
#include "text/format.h"

namespace {

using namespace kvocaeio;

const bench::InputKind* findKind(std::string_view name) {
    for (const bench::InputKind& kind : bench::kInputKinds)
        if (kind.name == name)
            return &kind;
    return nullptr;
}

// The largest input whose node numbers still fit the columns.
constexpr int kLargestSize = 50'000'000;

int usage() {
    std::fputs(
        "usage: kvocaeio_bench_generate KIND N FILE\n"
        "N elements, of a package blocks; KIND is one of:\n",
        stderr);
    for (const bench::InputKind& kind : bench::kInputKinds)
        std::fprintf(stderr, "  %s\n", kind.name.data());
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4)
        return usage();
    const bench::InputKind* kind = findKind(argv[1]);
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
