/// Character classes of the C locale, whatever the host's locale.
#pragma once

#include <string>
#include <string_view>

namespace kvocaeio::text {

constexpr char toUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// Puts `text` in upper case into `folded`, whose memory is used again.
inline void foldToUpper(std::string_view text, std::string& folded) {
    folded.resize(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
        folded[i] = toUpper(text[i]);
}

}  // namespace kvocaeio::text
