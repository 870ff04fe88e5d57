/// Imports one deck as a host does, and says what that took.
#include <cstdio>

#include "abaqus/deck_import.h"
#include "bench/process_meter.h"
#include "bench/table_sizes.h"
#include "support/captured_output.h"
#include <kvocaeio/abaqus.h>

namespace {

using namespace kvocaeio;

struct Measured {
    bool imported;
    double seconds;
    std::size_t peak;
};

Measured import(const char* path) {
    CKVOAbaqusReader reader;
    const double start = bench::processorSeconds();
    const bool imported = reader.ImportInpFile(path);
    return {imported, bench::processorSeconds() - start, bench::peakBytes()};
}

// Imports once more, since the public interface does not show all tables.
std::size_t tableBytes(const char* path) {
    AbaqusModel model;
    importDeck(model, path);
    return bench::rawTableBytes(model);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: kvocaeio_bench_import FILE\n", stderr);
        return 2;
    }
    test::CapturedOutput output;
    const Measured measured = import(argv[1]);
    const std::size_t tables = tableBytes(argv[1]);
    output.text();
    if (!measured.imported) {
        std::fprintf(stderr, "%s: cannot be imported\n", argv[1]);
        return 1;
    }
    std::printf("cpu=%.6f peak=%zu tables=%zu\n", measured.seconds, measured.peak, tables);
}
