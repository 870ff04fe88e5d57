/// A package file's lines as one pass over it sees them, and the fields of a line.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <string_view>

#include "package/words.h"
#include "text/line_reader.h"
#include "text/observer.h"
#include "text/scan.h"

namespace kvocaeio {

/// Lines arrive in pieces of at most 1023 characters.
inline constexpr std::size_t kPackageLineBound = 1024;

/// The lines of one pass. Counts them while the observer listens.
template <class Observer>
class PassLines {
  public:
    PassLines(std::FILE* file, Observer& observer)
        : reader_(file, kPackageLineBound, text::LineMode::kText), observer_(observer) {}

    /// Takes the next line. False at the end of the file.
    bool next() {
        if constexpr (Observer::kListens) {
            const bool wholeBefore = reader_.endsLine();
            if (!reader_.next())
                return false;
            if (wholeBefore)
                ++number_;
            if (line().size() + 1 == kPackageLineBound && !reader_.endsLine())
                note(text::Finding::kCut, "the line is too long");
            return true;
        } else {
            return reader_.next();
        }
    }

    /// Takes the next line that holds `word`, past all that don't.
    bool nextHolding(const Word& word) {
        if constexpr (Observer::kListens) {  // no line may go by uncounted
            while (next())
                if (word.isHeldBy(line()))
                    return true;
            return false;
        } else {
            return reader_.nextWith(word);
        }
    }

    /// The line taken last.
    std::string_view line() const { return reader_.line(); }

    /// Tells the observer of the line taken last.
    void note(text::Finding finding, std::string_view why) {
        if constexpr (Observer::kListens)
            observer_.note(finding, number_, line(), why);
    }

  private:
    text::LineReader reader_;
    Observer& observer_;
    std::size_t number_ = 1;
};

/// "%s %d", where the first word must stand for `keyword`.
inline bool scanKeywordLine(std::string_view line, const Word& keyword, int& number) {
    text::Scan scan(line);
    std::string_view word;
    int value = 0;
    if (!scan.word(word) || !scan.integer(value) || !keyword.isMatchedBy(word))
        return false;
    number = value;
    return true;
}

/// Scans numbers from the front of `line` until one fails or `numbers` is full. Gives how many
/// there are, or -1 where the line is blank, as the C library counts.
template <std::size_t kCapacity>
int scanNumbers(std::string_view line, std::array<double, kCapacity>& numbers) {
    text::Scan scan(line);
    std::size_t count = 0;
    while (count < kCapacity && scan.real(numbers[count]))
        ++count;
    if (count == 0 && std::ranges::all_of(line, text::isSpace))
        return -1;
    return static_cast<int>(count);
}

}  // namespace kvocaeio
