/// What plain readers take from the C library, the same on every platform.
#pragma once

#include <algorithm>
#include <climits>
#include <cstddef>
#include <string>
#include <string_view>

namespace kvocaeio::test {

// The sscanf that plain readers lean on is exact with the GNU runtime only: others may miss the
// last bit, and have their own mind about hexadecimal reals, "inf" and exponents without digits.
#if defined(__GLIBC__)
inline constexpr bool kHardReals = true;
#else
inline constexpr bool kHardReals = false;
#endif

/// What a file opened as text gives of these bytes.
inline std::string asText(std::string_view bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size() && bytes[i] != '\x1A'; ++i)
        if (bytes[i] != '\r' || i + 1 == bytes.size() || bytes[i + 1] != '\n')
            text += bytes[i];
    return text;
}

/// "%d", but a number out of range saturates. Gives the place behind it, or null without a number.
inline const char* scanInt(const char* text, int& value) {
    while (*text == ' ' || (*text >= '\t' && *text <= '\r'))
        ++text;
    const bool negative = *text == '-';
    if (*text == '-' || *text == '+')
        ++text;
    if (*text < '0' || *text > '9')
        return nullptr;
    long long number = 0;
    for (; *text >= '0' && *text <= '9'; ++text)
        if (number <= INT_MAX)
            number = number * 10 + (*text - '0');
    if (negative)
        number = -number;
    value = static_cast<int>(std::clamp<long long>(number, INT_MIN, INT_MAX));
    return text;
}

}  // namespace kvocaeio::test
