/// Counting without converting.
#include "abaqus/deck_counts.h"

#include <algorithm>
#include <cstdint>

namespace kvocaeio::abaqus {

namespace {

// 1 for a character that separates no tokens, else 0. Minima of differences: written as comparisons
// this becomes a bit test, which cannot be done on many characters at once.
constexpr std::uint8_t isTokenPart(char c) {
    const auto differs = [c](char delimiter) { return static_cast<std::uint8_t>(c ^ delimiter); };
    const std::uint8_t field = std::min(differs(','), differs(' '));
    const std::uint8_t lineEnd = std::min(differs('\n'), differs('\r'));
    return std::min(std::min(field, lineEnd), std::uint8_t{1});
}

}  // namespace

// A token starts wherever a separator, or the line's start, stands before a character that is none.
// The first pass counts the elements by this, so it is written for vector instructions: no branch,
// and sums of one byte, which a run of 128 characters cannot overflow.
std::size_t countDataTokens(std::string_view line) {
    constexpr std::size_t kRun = 128;
    if (line.empty())
        return 0;
    const char* const at = line.data();
    std::size_t count = isTokenPart(at[0]);
    for (std::size_t first = 1; first < line.size(); first += kRun) {
        const std::size_t last = std::min(first + kRun, line.size());
        std::uint8_t starts = 0;
        for (std::size_t i = first; i < last; ++i)
            starts =
                static_cast<std::uint8_t>(starts + (isTokenPart(at[i]) & ~isTokenPart(at[i - 1])));
        count += starts;
    }
    return count;
}

}  // namespace kvocaeio::abaqus
