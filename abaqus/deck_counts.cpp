/// Counting without converting.
#include "abaqus/deck_counts.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace kvocaeio {

namespace {

constexpr bool separates(char c) { return (c == ',') | (c == ' ') | (c == '\n') | (c == '\r'); }

}  // namespace

// A token starts wherever a separator, or the line's start, stands before a character that is none.
// Whole elements are counted by this, a line at a time, so it is written for vector instructions:
// no branch, and sums of a byte that a run of 128 characters cannot overflow.
std::size_t countDataTokens(std::string_view line) {
    constexpr std::size_t kRun = 128;
    if (line.empty())
        return 0;
    const char* const text = line.data();
    std::size_t count = separates(text[0]) ? 0 : 1;
    for (std::size_t first = 1; first < line.size(); first += kRun) {
        const std::size_t last = std::min(first + kRun, line.size());
        std::uint8_t starts = 0;
        for (std::size_t i = first; i < last; ++i)
            starts = static_cast<std::uint8_t>(starts + (separates(text[i - 1]) & !separates(text[i])));
        count += starts;
    }
    return count;
}

std::size_t DeckCounts::nodes() const {
    return std::accumulate(nodeBlocks.begin(), nodeBlocks.end(), std::size_t{0});
}

}  // namespace kvocaeio
