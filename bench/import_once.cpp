/// Imports and sorts one deck as a host does, and says what that took.
#include <cstdio>

#include "abaqus/deck_import.h"
#include "abaqus/normalise.h"
#include "bench/process_meter.h"
#include "bench/table_sizes.h"
#include "support/captured_output.h"
#include <kvocaeio/abaqus.h>

namespace {

using namespace kvocaeio;

struct Step {
    double seconds;
    std::size_t peak;
};

template <class Run>
Step measure(const Run& run) {
    const double start = bench::processorSeconds();
    run();
    return {bench::processorSeconds() - start, bench::peakBytes()};
}

void print(const char* step, const Step& measured, std::size_t tables) {
    std::printf("%s_cpu=%.6f %s_peak=%zu %s_tables=%zu\n", step, measured.seconds, step,
                measured.peak, step, tables);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: kvocaeio_bench_import FILE\n", stderr);
        return 2;
    }
    test::CapturedOutput output;
    bool imported = false;
    Step importStep, sortStep;
    {
        CKVOAbaqusReader reader;
        importStep = measure([&] { imported = reader.ImportInpFile(argv[1]); });
        sortStep = measure([&] { reader.SortData(); });
    }
    // Once more, since the public interface does not show all tables.
    AbaqusModel model;
    importDeck(model, argv[1]);
    SortData(model);
    output.text();
    if (!imported) {
        std::fprintf(stderr, "%s: cannot be imported\n", argv[1]);
        return 1;
    }
    const std::size_t raw = bench::rawTableBytes(model);
    print("import", importStep, raw);
    print("sort", sortStep, raw + bench::sortedTableBytes(model));
}
