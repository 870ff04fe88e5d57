/// Words of a file's first lines.
#include "file_head.h"

#include <cctype>

namespace kvocaeio::host {

std::string_view trimmed(std::string_view line) {
    constexpr std::string_view kBlanks = " \t\r";
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    return line.substr(0, line.find_last_not_of(kBlanks) + 1);
}

std::string upperCase(std::string_view word) {
    std::string upper(word);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return upper;
}

std::string_view firstWord(std::string_view line, std::string_view ends) {
    line = trimmed(line);
    return line.substr(0, line.find_first_of(ends));
}

bool contains(std::span<const std::string_view> words, std::string_view word) {
    return std::count(words.begin(), words.end(), word) != 0;
}

}  // namespace kvocaeio::host
