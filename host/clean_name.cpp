/// UTF-8, decoded as far as the replacement of characters needs it.
#include "clean_name.h"

#include <algorithm>
#include <array>

namespace kvocaeio::host {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

constexpr std::array<Range, 6> kUnsafe = {{
    {0x00, 0x1f},      // C0 controls
    {0x7f, 0x9f},      // delete, C1 controls
    {0x061c, 0x061c},  // marks and overrides of the direction of writing, here and below
    {0x200e, 0x200f},
    {0x2028, 0x202e},  // line and paragraph separator first
    {0x2066, 0x2069},
}};

bool isUnsafe(char32_t character) {
    return std::any_of(kUnsafe.begin(), kUnsafe.end(), [&](const Range& range) {
        return character >= range.first && character <= range.last;
    });
}

struct Character {
    char32_t code;
    std::size_t bytes;  ///< 0 where no character of UTF-8 begins
};

Character firstCharacter(std::string_view text) {
    constexpr std::array<char32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
    const auto byteAt = [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(text[i]));
    };
    const char32_t lead = byteAt(0);
    if (lead < 0x80)
        return {lead, 1};
    const std::size_t bytes = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
    if (lead < 0xc0 || lead >= 0xf8 || bytes > text.size())
        return {0, 0};
    char32_t code = lead & (0x7fu >> bytes);
    for (std::size_t i = 1; i < bytes; ++i) {
        if ((byteAt(i) & 0xc0) != 0x80)
            return {0, 0};
        code = code << 6 | (byteAt(i) & 0x3f);
    }
    const bool isSurrogate = code >= 0xd800 && code < 0xe000;
    if (code < kLeast[bytes] || code > 0x10ffff || isSurrogate)
        return {0, 0};
    return {code, bytes};
}

}  // namespace

std::string cleanName(std::string_view name) {
    std::string clean;
    clean.reserve(name.size());
    while (!name.empty()) {
        const auto [code, bytes] = firstCharacter(name);
        if (bytes == 0 || isUnsafe(code))
            clean += '?';
        else
            clean += name.substr(0, bytes);
        name.remove_prefix(std::max<std::size_t>(bytes, 1));
    }
    return clean;
}

}  // namespace kvocaeio::host
