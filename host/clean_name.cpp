/// The characters that are replaced.
#include "clean_name.h"

#include <algorithm>
#include <array>

#include "utf8.h"

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
