/// Speed of the Abaqus import and normalisation by size of the deck.
#include <benchmark/benchmark.h>
#include <filesystem>
#include <optional>
#include <string>

#include "bench/abaqus_deck.h"
#include "support/captured_output.h"
#include "support/files.h"
#include "text/file.h"
#include <kvocaeio/abaqus.h>

namespace {

using namespace kvocaeio;

using WriteDeck = void (*)(text::Writer& out, int elements);

// A generated deck, for as long as one benchmark runs.
class Deck {
  public:
    Deck(WriteDeck write, int elements) {
        const text::File file = text::openFile(path().c_str(), "wb");
        text::Writer out(file.get());
        write(out, elements);
    }
    std::string path() const { return folder_.file("deck.inp"); }

  private:
    test::TempFolder folder_;
};

void Import(benchmark::State& state, WriteDeck write) {
    const Deck deck(write, static_cast<int>(state.range(0)));
    test::CapturedOutput output;
    for (auto _ : state) {
        CKVOAbaqusReader reader;
        reader.ImportInpFile(deck.path().c_str());
    }
    const auto size = static_cast<std::int64_t>(std::filesystem::file_size(deck.path()));
    state.SetBytesProcessed(state.iterations() * size);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Sort(benchmark::State& state, WriteDeck write) {
    const Deck deck(write, static_cast<int>(state.range(0)));
    test::CapturedOutput output;
    std::optional<CKVOAbaqusReader> reader;
    for (auto _ : state) {
        state.PauseTiming();  // a second sort of the same tables would have more to do
        reader.emplace().ImportInpFile(deck.path().c_str());
        state.ResumeTiming();
        reader->SortData();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void bySize(benchmark::internal::Benchmark* benchmark) {
    benchmark->RangeMultiplier(10)->Range(10'000, 1'000'000);
    benchmark->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);
}
BENCHMARK_CAPTURE(Import, hex, bench::writeHexDeck)->Apply(bySize);
BENCHMARK_CAPTURE(Import, tet, bench::writeTetDeck)->Apply(bySize);
BENCHMARK_CAPTURE(Sort, hex, bench::writeHexDeck)->Apply(bySize)->MinTime(0.1);
BENCHMARK_CAPTURE(Sort, tet, bench::writeTetDeck)->Apply(bySize)->MinTime(0.1);

}  // namespace
