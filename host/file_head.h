/// A look at the first lines of a file, by which formats are told apart.
#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <string_view>

namespace kvocaeio::host {

/// `line` without blanks, tabs and carriage returns around it.
std::string_view trimmed(std::string_view line);

/// `word` with the ASCII letters in upper case.
std::string upperCase(std::string_view word);

/// The first word of `line`: what stands before the next of `ends`, blanks around it removed.
std::string_view firstWord(std::string_view line, std::string_view ends = " \t\r");

/// Whether `word` is one of `words`.
bool contains(std::span<const std::string_view> words, std::string_view word);

/// Whether `matches` is true of any line of `head`.
template <class Matches>
bool anyLine(std::string_view head, const Matches& matches) {
    while (!head.empty()) {
        const std::string_view line = head.substr(0, head.find('\n'));
        if (matches(line))
            return true;
        head.remove_prefix(std::min(line.size() + 1, head.size()));
    }
    return false;
}

}  // namespace kvocaeio::host
