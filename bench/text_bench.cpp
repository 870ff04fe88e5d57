/// Speed of the text toolkit, each part beside the bare standard function it is built on.
#include <benchmark/benchmark.h>
#include <charconv>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "abaqus/lines.h"
#include "support/files.h"
#include "text/file.h"
#include "text/line_reader.h"
#include "text/scan.h"
#include "text/tokens.h"

namespace {

using namespace kvocaeio;

constexpr std::string_view kNodeLine = "   12345,   12.50421090,    0.04628090,   -7.05001136\n";
constexpr std::string_view kElementLine =
    "   12345,   12301,   12302,   12403,   12402,   22502,   22503,   22604,   22603\n";
constexpr int kLines = 100'000;

std::string repeated(std::string_view line) {
    std::string text;
    for (int i = 0; i < kLines; ++i)
        text += line;
    return text;
}

void countBytes(benchmark::State& state, std::size_t perRound) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(perRound));
}

void BareLines(benchmark::State& state) {
    const test::TempFolder folder;
    const std::string text = repeated(kElementLine);
    const std::string path = folder.write("lines", text);
    std::vector<char> buffer(std::size_t{1} << 18);
    for (auto _ : state) {
        const text::File file = text::openFile(path.c_str(), "rb");
        std::setvbuf(file.get(), nullptr, _IONBF, 0);
        std::size_t lines = 0;
        while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file.get())) {
            std::string_view rest(buffer.data(), count);
            for (std::size_t lf; (lf = rest.find('\n')) != rest.npos; rest.remove_prefix(lf + 1))
                ++lines;
        }
        benchmark::DoNotOptimize(lines);
    }
    countBytes(state, text.size());
}
BENCHMARK(BareLines);

void ReadLines(benchmark::State& state) {
    const auto mode = static_cast<text::LineMode>(state.range(0));
    const test::TempFolder folder;
    const std::string text = repeated(kElementLine);
    const std::string path = folder.write("lines", text);
    for (auto _ : state) {
        const text::File file = text::openFile(path.c_str(), "rb");
        text::LineReader reader(file.get(), abaqus::kLineBound, mode);
        std::size_t length = 0;
        while (reader.next())
            length += reader.line().size();
        benchmark::DoNotOptimize(length);
    }
    countBytes(state, text.size());
}
BENCHMARK(ReadLines)->ArgName("text")->Arg(0)->Arg(1);

void BareNodeLine(benchmark::State& state) {
    const char* const end = kNodeLine.data() + kNodeLine.size();
    for (auto _ : state) {
        const char* position = kNodeLine.data();
        benchmark::DoNotOptimize(position);
        int id = 0;
        double coord[3] = {};
        const auto skipBlanks = [&] {
            while (*position == ' ')
                ++position;
        };
        skipBlanks();
        position = std::from_chars(position, end, id).ptr;
        for (double& value : coord) {
            ++position;
            skipBlanks();
            position = std::from_chars(position, end, value).ptr;
        }
        benchmark::DoNotOptimize(id);
        benchmark::DoNotOptimize(coord);
    }
    countBytes(state, kNodeLine.size());
}
BENCHMARK(BareNodeLine);

void ScanNodeLine(benchmark::State& state) {
    for (auto _ : state) {
        std::string_view line = kNodeLine;
        benchmark::DoNotOptimize(line);
        int id = 0;
        double coord[3] = {};
        text::Scan scan(line);
        scan.integer(id) && scan.separator(',') && scan.real(coord[0]) && scan.separator(',') &&
            scan.real(coord[1]) && scan.separator(',') && scan.real(coord[2]);
        benchmark::DoNotOptimize(id);
        benchmark::DoNotOptimize(coord);
    }
    countBytes(state, kNodeLine.size());
}
BENCHMARK(ScanNodeLine);

void BareElementLine(benchmark::State& state) {
    const char* const end = kElementLine.data() + kElementLine.size();
    for (auto _ : state) {
        const char* position = kElementLine.data();
        benchmark::DoNotOptimize(position);
        int sum = 0;
        for (;;) {
            while (*position == ' ' || *position == ',')
                ++position;
            if (*position == '\n')
                break;
            int value = 0;
            position = std::from_chars(position, end, value).ptr;
            sum += value;
        }
        benchmark::DoNotOptimize(sum);
    }
    countBytes(state, kElementLine.size());
}
BENCHMARK(BareElementLine);

void ScanElementTokens(benchmark::State& state) {
    for (auto _ : state) {
        std::string_view line = kElementLine;
        benchmark::DoNotOptimize(line);
        int sum = 0;
        text::Tokens tokens(line);
        for (std::string_view token; tokens.next(abaqus::kDataField, token);) {
            int value = 0;
            text::Scan(token).integer(value);
            sum += value;
        }
        benchmark::DoNotOptimize(sum);
    }
    countBytes(state, kElementLine.size());
}
BENCHMARK(ScanElementTokens);

}  // namespace
