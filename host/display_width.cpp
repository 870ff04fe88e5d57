/// Widths of characters, after the tables of the Unicode standard; ranges of rare scripts are
/// whole.
#include "display_width.h"

#include <algorithm>
#include <array>
#include <utility>

#include "utf8.h"

namespace kvocaeio::host {

namespace {

using WidthRange = std::pair<char32_t, char32_t>;  // first, last

// Marks that combine with the character before them, and characters that show nothing.
constexpr auto kCombining = std::to_array<WidthRange>(
    {{0x0300, 0x036f}, {0x0483, 0x0489}, {0x0591, 0x05bd}, {0x05bf, 0x05bf},   {0x05c1, 0x05c5},
     {0x05c7, 0x05c7}, {0x0610, 0x061a}, {0x064b, 0x065f}, {0x0670, 0x0670},   {0x06d6, 0x06dc},
     {0x06df, 0x06e4}, {0x06e7, 0x06e8}, {0x06ea, 0x06ed}, {0x0900, 0x0902},   {0x093a, 0x093a},
     {0x093c, 0x093c}, {0x0941, 0x0948}, {0x094d, 0x094d}, {0x0951, 0x0957},   {0x0e31, 0x0e31},
     {0x0e34, 0x0e3a}, {0x0e47, 0x0e4e}, {0x1160, 0x11ff}, {0x1ab0, 0x1aff},   {0x1dc0, 0x1dff},
     {0x200b, 0x200d}, {0x2060, 0x2060}, {0x20d0, 0x20f0}, {0x302a, 0x302d},   {0x3099, 0x309a},
     {0xfe00, 0xfe0f}, {0xfe20, 0xfe2f}, {0xfeff, 0xfeff}, {0x1f3fb, 0x1f3ff}, {0xe0100, 0xe01ef}});

constexpr auto kWide = std::to_array<WidthRange>(
    {{0x1100, 0x115f},   {0x231a, 0x231b},   {0x2329, 0x232a},   {0x23e9, 0x23ec},
     {0x2614, 0x2615},   {0x2648, 0x2653},   {0x26a1, 0x26a1},   {0x26bd, 0x26be},
     {0x2705, 0x2705},   {0x270a, 0x270b},   {0x2728, 0x2728},   {0x274c, 0x274c},
     {0x2753, 0x2755},   {0x2795, 0x2797},   {0x2b1b, 0x2b1c},   {0x2e80, 0x303e},
     {0x3041, 0x3247},   {0x3250, 0x4dbf},   {0x4e00, 0xa4cf},   {0xa960, 0xa97f},
     {0xac00, 0xd7a3},   {0xf900, 0xfaff},   {0xfe10, 0xfe19},   {0xfe30, 0xfe6f},
     {0xff01, 0xff60},   {0xffe0, 0xffe6},   {0x16fe0, 0x18d08}, {0x1b000, 0x1b2fb},
     {0x1f200, 0x1f320}, {0x1f32d, 0x1f335}, {0x1f337, 0x1f37c}, {0x1f37e, 0x1f393},
     {0x1f3a0, 0x1f3ca}, {0x1f3e0, 0x1f3f0}, {0x1f3f8, 0x1f43e}, {0x1f440, 0x1f440},
     {0x1f442, 0x1f4fc}, {0x1f4ff, 0x1f53d}, {0x1f550, 0x1f567}, {0x1f5fb, 0x1f64f},
     {0x1f680, 0x1f6c5}, {0x1f6eb, 0x1f6ff}, {0x1f7e0, 0x1f7eb}, {0x1f90c, 0x1f9ff},
     {0x1fa70, 0x1faff}, {0x20000, 0x3fffd}});

template <std::size_t kSize>
bool isIn(const std::array<WidthRange, kSize>& ranges, char32_t code) {
    const auto next = std::partition_point(
        ranges.begin(), ranges.end(), [&](const WidthRange& range) { return range.second < code; });
    return next != ranges.end() && next->first <= code;
}

std::size_t widthOf(const Character& character) {
    if (character.bytes == 0 || character.code < 0x300)
        return 1;
    return isIn(kCombining, character.code) ? 0 : isIn(kWide, character.code) ? 2 : 1;
}

std::size_t bytesOf(const Character& character) {
    return std::max<std::size_t>(character.bytes, 1);
}

/// The bytes at the front of `text` that take at most `width` columns.
std::size_t bytesWithin(std::string_view text, std::size_t width) {
    std::size_t bytes = 0;
    while (bytes < text.size()) {
        const Character character = firstCharacter(text.substr(bytes));
        if (widthOf(character) > width)
            break;
        width -= widthOf(character);
        bytes += bytesOf(character);
    }
    return bytes;
}

/// What no line end may part: a word, a number and the word after it, numbers in parentheses.
std::string_view firstPiece(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789";
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = std::min(text.find(' ', start), text.size());
        const std::string_view word = text.substr(start, end - start);
        const bool isNumber =
            !word.empty() && word.find_first_not_of(kDigits) == std::string_view::npos;
        const bool isOpen = text.size() > 1 && text[0] == '(' &&
                            (text[1] == '-' || kDigits.find(text[1]) != std::string_view::npos) &&
                            text.substr(0, end).find(')') == std::string_view::npos;
        if (end == text.size() || !(isNumber || isOpen))
            return text.substr(0, end);
        start = end + 1;
    }
}

}  // namespace

std::size_t displayWidth(std::string_view text) {
    std::size_t width = 0;
    while (!text.empty()) {
        const Character character = firstCharacter(text);
        width += widthOf(character);
        text.remove_prefix(bytesOf(character));
    }
    return width;
}

std::string cutInTheMiddle(std::string_view name, std::size_t width) {
    constexpr std::string_view kGap = "...";
    const std::size_t whole = displayWidth(name);
    if (whole <= width)
        return std::string(name);
    const std::size_t kept = width - std::min(width, kGap.size());
    const std::size_t atEnd = kept / 2;
    const std::string_view front = name.substr(0, bytesWithin(name, kept - atEnd));
    std::size_t dropped = front.size();
    while (displayWidth(name.substr(dropped)) > atEnd)
        dropped += bytesOf(firstCharacter(name.substr(dropped)));
    // A mark does not stay without the character that it belongs to.
    while (dropped < name.size() && widthOf(firstCharacter(name.substr(dropped))) == 0)
        dropped += firstCharacter(name.substr(dropped)).bytes;
    return std::string(front).append(kGap).append(name.substr(dropped));
}

std::vector<std::string> wrapped(std::string_view text, std::size_t width) {
    std::vector<std::string> lines(1);
    while (!text.empty()) {
        const std::string_view word = firstPiece(text);
        text.remove_prefix(std::min(word.size() + 1, text.size()));
        if (!lines.back().empty() && displayWidth(lines.back()) + 1 + displayWidth(word) > width)
            lines.emplace_back();
        lines.back().append(lines.back().empty() ? "" : " ").append(word);
    }
    return lines;
}

}  // namespace kvocaeio::host
