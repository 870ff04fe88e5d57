/// Does one job of the library's on one file, as a host does, and says what each step of it took.
#include <cstdio>
#include <string>
#include <vector>

#include "abaqus/import.h"
#include "abaqus/normalise.h"
#include "bench/host_writers.h"
#include "bench/job_table.h"
#include "bench/table_sizes.h"
#include "package/import_3di.h"
#include "support/captured_output.h"
#include "support/process_meter.h"
#include <kvocaeio/abaqus.h>
#include <kvocaeio/nastran.h>
#include <kvocaeio/package.h>
#include <kvocaeio/patran.h>
#include <kvocaeio/report.h>
#include <kvocaeio/tidy.h>

namespace {

using namespace kvocaeio;

struct Step {
    const char* name;
    double seconds;
    std::size_t peak;
    std::size_t tables;  // what the step's result needs by itself
};

// None where the job failed.
using Steps = std::vector<Step>;

template <class Run>
Step measure(const char* name, const Run& run) {
    const double start = test::processorSeconds();
    run();
    return {name, test::processorSeconds() - start, test::peakBytes(), 0};
}

// Each import can be asked for a report, too.
enum class Report : bool { kNone, kWanted };

// A report that an import takes, or null.
template <Report kReport>
CKVOImportReport* reportToFill() {
    static CKVOImportReport report;
    return kReport == Report::kWanted ? &report : nullptr;
}

template <Report kReport>
Steps importAbaqus(const char* path, int) {
    bool imported = false;
    Steps steps;
    CKVOImportReport* const report = reportToFill<kReport>();
    {
        CKVOAbaqusReader reader;
        steps.push_back(measure("import", [&] { imported = reader.ImportInpFile(path, report); }));
        steps.push_back(measure("sort", [&] { reader.SortData(report); }));
    }
    if (!imported)
        return {};
    // Once more, since the public interface does not show all tables.
    abaqus::AbaqusModel model;
    abaqus::importDeck(model, path);
    abaqus::SortData(model);
    steps[0].tables = bench::rawTableBytes(model);
    steps[1].tables = steps[0].tables + bench::sortedTableBytes(model);
    return steps;
}

template <Report kReport>
Steps importPackage(const char* path, int) {
    bool imported = false;
    Step step;
    CKVOImportReport* const report = reportToFill<kReport>();
    {
        CKVOCadenceReader reader;
        step = measure("import", [&] { imported = reader.Import3DIFile(path, report); });
    }
    if (!imported)
        return {};
    package::Model model;  // likewise
    package::InputFile file(path);
    package::import3di(file, model);
    step.tables = bench::packageBytes(model);
    return {step};
}

std::size_t bytes(int rows, std::size_t rowSize) {
    return static_cast<std::size_t>(rows) * rowSize;
}

template <Report kReport>
Steps readNastran(const char* path, int) {
    bool read = false;
    CKVOImportReport* const report = reportToFill<kReport>();
    KVONASTRAN_Reader reader;
    Step step = measure("read", [&] { read = reader.SetFilePath(path, report); });
    if (!read)
        return {};
    step.tables = bytes(reader.GetNodeCout(), 4 * sizeof(float)) +
                  bytes(reader.GetElemCout(), 9 * sizeof(int)) +
                  bytes(reader.GetSectionCout(), 3 * sizeof(int));
    return {step};
}

// Coordinates, four corners, shape and property.
template <Report kReport>
Steps readPatranLists(const char* path, int) {
    bool read = false;
    CKVOImportReport* const report = reportToFill<kReport>();
    CKVO_PatranIO_Bridge reader;
    Step step = measure("bridge", [&] { read = reader.ImportFromPatFile(path, report); });
    if (!read)
        return {};
    step.tables = bytes(reader.GetNodeCount(), 3 * sizeof(float)) +
                  bytes(reader.GetElementCount(), 6 * sizeof(int));
    return {step};
}

// The same with eight nodes, and the map of the node ids.
template <Report kReport>
Steps readPatranArrays(const char* path, int) {
    bool read = false;
    CKVOImportReport* const report = reportToFill<kReport>();
    CPatranReader reader;
    Step step = measure("reader", [&] { read = reader.ImportFromPatFile(path, report); });
    if (!read)
        return {};
    step.tables = bytes(reader.GetNodeCout(), 3 * sizeof(float) + sizeof(int)) +
                  bytes(reader.GetElemCount(), 10 * sizeof(int));
    return {step};
}

template <bool (*kWrite)(const char* path, const bench::SolidMesh& mesh)>
Steps write(const char* path, int size) {
    const bench::SolidMesh mesh = bench::makeSolidMesh(size);
    bool written = false;
    Step step = measure("write", [&] { written = kWrite(path, mesh); });
    step.tables = bench::bytes(mesh);
    return written ? Steps{step} : Steps{};
}

// Into a deck beside the original, named as it with ".tidy" at the end. No tables remain.
Steps tidy(const char* path, int) {
    bool good = false;
    const std::string target = std::string(path) + ".tidy";
    CKVODeckTidy deck;
    const Step step = measure(
        "tidy", [&] { good = deck.Tidy(path, target.c_str(), CKVODeckTidy::kRecognise, nullptr); });
    return good ? Steps{step} : Steps{};
}

constexpr bench::Job<Steps> kJobs[] = {
    {"abaqus", importAbaqus<Report::kNone>},
    {"abaqus-report", importAbaqus<Report::kWanted>},
    {"3di", importPackage<Report::kNone>},
    {"3di-report", importPackage<Report::kWanted>},
    {"nastran", readNastran<Report::kNone>},
    {"nastran-report", readNastran<Report::kWanted>},
    {"write-nastran", write<bench::writeNastranMesh>},
    {"patran-bridge", readPatranLists<Report::kNone>},
    {"patran-bridge-report", readPatranLists<Report::kWanted>},
    {"patran-reader", readPatranArrays<Report::kNone>},
    {"patran-reader-report", readPatranArrays<Report::kWanted>},
    {"write-patran", write<bench::writePatranMesh>},
    {"tidy", tidy},
};

}  // namespace

int main(int argc, char** argv) {
    const bench::Job<Steps>* const job = bench::chooseJob<Steps>(argc, argv, kJobs);
    if (job == nullptr)
        return 2;
    test::CapturedOutput output;
    const Steps steps = bench::runJob(*job, argv);
    output.text();
    if (steps.empty()) {
        std::fprintf(stderr, "%s: the library cannot do it\n", argv[2]);
        return 1;
    }
    for (const Step& step : steps)
        std::printf("%s_cpu=%.6f %s_peak=%zu %s_tables=%zu\n", step.name, step.seconds, step.name,
                    step.peak, step.name, step.tables);
}
