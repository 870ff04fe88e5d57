/// Does the least that a job on one file takes, and says how long that took.
#include <cstdio>
#include <filesystem>
#include <string_view>

#include "bench/abaqus_floor.h"
#include "bench/process_meter.h"
#include "support/captured_output.h"
#include "text/file.h"

namespace {

using namespace kvocaeio;

struct Measured {
    double seconds;
    bench::FloorCounts counts;
};

Measured readAbaqus(const char* path) {
    const double start = bench::processorSeconds();
    const text::File file = text::openFile(path, "rb");
    if (file == nullptr)
        return {};
    const bench::FloorCounts counts =
        bench::readAbaqusDeck(file.get(), std::filesystem::file_size(path));
    return {bench::processorSeconds() - start, counts};
}

Measured sortAbaqus(const char* path) {
    CKVOAbaqusReader reader;
    {
        test::CapturedOutput output;
        reader.ImportInpFile(path);
    }
    bench::RawTables tables;
    reader.GetNodeBegin();
    for (CKVOAbaqusReader::NodeData node; reader.GetNodeNext(&node);)
        tables.nodeOids.push_back(node.id);
    reader.GetElemSecBegin();
    for (CKVOAbaqusReader::ElemSecData section; reader.GetElemSecNext(&section);)
        tables.sections.push_back(section);
    if (tables.nodeOids.empty())
        return {};
    const double start = bench::processorSeconds();
    const bench::FloorCounts counts = bench::sortAbaqusTables(tables);
    return {bench::processorSeconds() - start, counts};
}

struct Job {
    std::string_view name;
    Measured (*run)(const char* path);
};

constexpr Job kJobs[] = {
    {"abaqus", readAbaqus},
    {"abaqus-sort", sortAbaqus},
};

}  // namespace

int main(int argc, char** argv) {
    for (const Job& job : kJobs) {
        if (argc != 3 || job.name != argv[1])
            continue;
        const auto [seconds, counts] = job.run(argv[2]);
        if (counts.lines == 0) {
            std::fprintf(stderr, "%s: nothing to read\n", argv[2]);
            return 1;
        }
        std::printf("cpu=%.6f lines=%zu integers=%zu reals=%zu\n", seconds, counts.lines,
                    counts.integers, counts.reals);
        return 0;
    }
    std::fputs("usage: kvocaeio_bench_floor JOB FILE\nJOB is one of:\n", stderr);
    for (const Job& job : kJobs)
        std::fprintf(stderr, "  %s\n", job.name.data());
    return 2;
}
