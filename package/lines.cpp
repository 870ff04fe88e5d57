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

int scanNumbers(std::string_view line, std::span<double> numbers) {
    text::Scan scan(line);
    std::size_t count = 0;
    while (count < numbers.size() && scan.real(numbers[count]))
        ++count;
    if (count == 0 && std::ranges::all_of(line, text::isSpace))
        return -1;
    return static_cast<int>(count);
}

}  // namespace kvocaeio::package
