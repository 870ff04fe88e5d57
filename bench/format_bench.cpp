/// Speed of the library's jobs by size of the file.
#include <benchmark/benchmark.h>
#include <filesystem>
#include <optional>
#include <string>

#include "bench/host_writers.h"
#include "bench/inputs.h"
#include "support/captured_output.h"
#include "support/files.h"
#include "text/file.h"
#include <kvocaeio/abaqus.h>
#include <kvocaeio/nastran.h>
#include <kvocaeio/package.h>
#include <kvocaeio/patran.h>

namespace {

using namespace kvocaeio;

using GenerateInput = void (*)(text::Writer& out, int size);

// A generated input, for as long as one benchmark runs.
class Input {
  public:
    Input(GenerateInput generate, int size) {
        const text::File file = text::openFile(path().c_str(), "wb");
        text::Writer out(file.get());
        generate(out, size);
    }
    std::string path() const { return folder_.file("input"); }

  private:
    test::TempFolder folder_;
};

int sizeOf(const benchmark::State& state) {
    return static_cast<int>(state.range(0));
}

void count(benchmark::State& state, const std::string& path) {
    const auto size = static_cast<std::int64_t>(std::filesystem::file_size(path));
    state.SetBytesProcessed(state.iterations() * size);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// Runs `import(reader, path)` on a new reader each time.
template <class Reader, class Import>
void import(benchmark::State& state, GenerateInput generate, const Import& import) {
    const Input input(generate, sizeOf(state));
    const std::string path = input.path();
    const test::CapturedOutput output;
    for (auto _ : state) {
        Reader reader;
        import(reader, path.c_str());
    }
    count(state, path);
}

void ImportAbaqus(benchmark::State& state, GenerateInput generate) {
    import<CKVOAbaqusReader>(state, generate, [](CKVOAbaqusReader& reader, const char* path) {
        reader.ImportInpFile(path);
});
}  // namespace

void SortAbaqus(benchmark::State& state, GenerateInput generate) {
    const Input input(generate, sizeOf(state));
    const test::CapturedOutput output;
    std::optional<CKVOAbaqusReader> reader;
    for (auto _ : state) {
        state.PauseTiming();  // a second sort of the same tables would have more to do
        reader.emplace().ImportInpFile(input.path().c_str());
        state.ResumeTiming();
        reader->SortData();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void ImportPackage(benchmark::State& state) {
    import<CKVOCadenceReader>(
        state, bench::writePackageFile,
        [](CKVOCadenceReader& reader, const char* path) { reader.Import3DIFile(path);
});
}

void ReadNastran(benchmark::State& state) {
    import<KVONASTRAN_Reader>(
        state, bench::writeNastranDeck,
        [](KVONASTRAN_Reader& reader, const char* path) { reader.SetFilePath(path);
});
}

void ReadPatranBridge(benchmark::State& state) {
    import<CKVO_PatranIO_Bridge>(
        state, bench::writePatranFile,
        [](CKVO_PatranIO_Bridge& reader, const char* path) { reader.ImportFromPatFile(path);
});
}

void ReadPatranReader(benchmark::State& state) {
    import<CPatranReader>(
        state, bench::writePatranFile,
        [](CPatranReader& reader, const char* path) { reader.ImportFromPatFile(path);
});
}

void write(benchmark::State& state, bool (*write)(const char* path, const bench::SolidMesh& mesh)) {
    const bench::SolidMesh mesh = bench::makeSolidMesh(sizeOf(state));
    const test::TempFolder folder;
    const std::string path = folder.file("output");
    for (auto _ : state)
        write(path.c_str(), mesh);
    count(state, path);
}

void WriteNastran(benchmark::State& state) {
    write(state, bench::writeNastranMesh);
}

void WritePatran(benchmark::State& state) {
    write(state, bench::writePatranMesh);
}

void bySize(benchmark::internal::Benchmark* benchmark) {
    benchmark->RangeMultiplier(10)->Range(10'000, 1'000'000);
    benchmark->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);
}
BENCHMARK_CAPTURE(ImportAbaqus, hex, bench::writeHexDeck)->Apply(bySize);
BENCHMARK_CAPTURE(ImportAbaqus, tet, bench::writeTetDeck)->Apply(bySize);
BENCHMARK_CAPTURE(SortAbaqus, hex, bench::writeHexDeck)->Apply(bySize)->MinTime(0.1);
BENCHMARK_CAPTURE(SortAbaqus, tet, bench::writeTetDeck)->Apply(bySize)->MinTime(0.1);
BENCHMARK(ImportPackage)->Apply(bySize);
BENCHMARK(ReadNastran)->Apply(bySize);
BENCHMARK(WriteNastran)->Apply(bySize);
BENCHMARK(ReadPatranBridge)->Apply(bySize);
BENCHMARK(ReadPatranReader)->Apply(bySize);
BENCHMARK(WritePatran)->Apply(bySize);

}  // namespace
