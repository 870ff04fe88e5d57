/// Decoding of UTF-8.
#include "utf8.h"

#include <array>

namespace kvocaeio::host {

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

}  // namespace kvocaeio::host
