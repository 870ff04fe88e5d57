/// The fields of a package file's line.
#include "package/lines.h"

#include <algorithm>

#include "text/scan.h"

namespace kvocaeio::package {

bool scanKeywordLine(std::string_view line, const Word& keyword, int& number) {
    text::Scan scan(line);
    std::string_view word;
    return scan.word(word) && keyword.isMatchedBy(word) && scan.integer(number);
}

int scanNumbers(std::string_view line, std::span<double> numbers, const char*& behind) {
    text::Scan scan(line);
    behind = line.data();
    std::size_t count = 0;
    for (; count < numbers.size() && scan.real(numbers[count]); ++count)
        behind = scan.position();
    if (count == 0 && std::ranges::all_of(line, text::isSpace))
        return -1;
    return static_cast<int>(count);
}

bool noteLines(InputFile& file, const text::Listener& listener) {
    if (listener.findings == nullptr)
        return true;
    const auto read = [](text::PassLines& lines) {
        lines.noteNulsAs(Finding::kLineNul);
        while (lines.next()) {
        }
    };
    return passOver(file, listener, read, &rowOf(Finding::kLineCut));
}

bool beginsWith(std::string_view line, std::string_view keyword) {
    text::Scan scan(line);
    std::string_view word;
    return scan.word(word) && equalsInAnyCase(word.substr(0, keyword.size()), keyword);
}

bool beginsWithInteger(std::string_view line) {
    text::Scan scan(line);
    int number = 0;
    return scan.integer(number);
}

void noteWordInLine(text::PassLines& lines, std::string_view keyword) {
    if (lines.areNoted() && !beginsWith(lines.line(), keyword)) [[unlikely]]
        lines.noteNamed(Finding::kWordInLine, keyword);
}

}  // namespace kvocaeio::package
