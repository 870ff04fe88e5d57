/// Words of a file's first lines.
#include "file_head.h"

#include <cctype>

namespace kvocaeio::host {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

std::string upperCase(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return upper;
}

std::string_view firstWord(std::string_view line, std::string_view ends) {
    line = trimmed(line);
    return line.substr(0, line.find_first_of(ends));
}

}  // namespace kvocaeio::host
