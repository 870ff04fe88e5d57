/// Numbers that could make an array larger than a fuzzer should be made to hold.
#pragma once

#include <cstddef>
#include <string_view>

namespace kvocaeio::test {

/// Whether more than `most` digits stand in a row.
inline bool hasLongNumber(std::string_view bytes, std::size_t most) {
    std::size_t digits = 0;
    for (const char c : bytes) {
        digits = c >= '0' && c <= '9' ? digits + 1 : 0;
        if (digits > most)
            return true;
    }
    return false;
}

}  // namespace kvocaeio::test
