/// Does the least that a job on one file takes, and says how long that took.
#include <cstdio>
#include <filesystem>

#include "bench/floors.h"
#include "bench/job_table.h"
#include "support/captured_output.h"
#include "support/process_meter.h"
#include "text/file.h"

namespace {

using namespace kvocaeio;

struct Measured {
    double seconds;
    bench::FloorCounts counts;
};

template <bench::FloorCounts (*kFloor)(std::FILE* file, std::size_t fileSize)>
Measured read(const char* path, int) {
    const double start = test::processorSeconds();
    const text::File file = text::openFile(path, "rb");
    if (file == nullptr)
        return {};
    const bench::FloorCounts counts = kFloor(file.get(), std::filesystem::file_size(path));
    return {test::processorSeconds() - start, counts};
}

template <bench::FloorCounts (*kFloor)(std::FILE* file, const bench::SolidMesh& mesh)>
Measured write(const char* path, int size) {
    const bench::SolidMesh mesh = bench::makeSolidMesh(size);
    const double start = test::processorSeconds();
    text::File file = text::openFile(path, "wb");
    if (file == nullptr)
        return {};
    const bench::FloorCounts counts = kFloor(file.get(), mesh);
    file.reset();
    return {test::processorSeconds() - start, counts};
}

Measured sortAbaqus(const char* path, int) {
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
    const double start = test::processorSeconds();
    const bench::FloorCounts counts = bench::abaqusSortFloor(tables);
    return {test::processorSeconds() - start, counts};
}

constexpr bench::Job<Measured> kJobs[] = {
    {"abaqus", read<bench::abaqusReadFloor>},
    {"abaqus-sort", sortAbaqus},
    {"3di", read<bench::packageReadFloor>},
    {"nastran", read<bench::nastranReadFloor>},
    {"write-nastran", write<bench::nastranWriteFloor>},
    {"patran", read<bench::patranReadFloor>},
    {"write-patran", write<bench::patranWriteFloor>},
};

}  // namespace

int main(int argc, char** argv) {
    const bench::Job<Measured>* const job = bench::chooseJob<Measured>(argc, argv, kJobs);
    if (job == nullptr)
        return 2;
    const auto [seconds, counts] = bench::runJob(*job, argv);
    if (counts.lines == 0) {
        std::fprintf(stderr, "%s: nothing to do\n", argv[2]);
        return 1;
    }
    std::printf("cpu=%.6f lines=%zu integers=%zu reals=%zu\n", seconds, counts.lines,
                counts.integers, counts.reals);
}
