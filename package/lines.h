/// One pass over a package file: its lines, and the fields of a line.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "package/findings.h"
#include "package/input_file.h"
#include "package/words.h"
#include "text/pass_lines.h"

namespace kvocaeio::package {

/// Lines arrive in pieces of at most 1023 characters.
inline constexpr std::size_t kLineBound = 1024;

/// Opens the file, hands its lines to `read` and closes it. False where it cannot be opened or the
/// host has stopped the import.
template <class Read>
bool passOver(InputFile& file, const text::Listener& listener, const Read& read) {
    if (!file.open(listener))
        return false;
    text::PassLines lines(file.stream.get(), kLineBound, text::LineMode::kText, listener,
                          Finding::kLineCut);
    read(lines);
    file.close();
    return !listener.hasStopped();
}

/// Takes the next line of a block or wire, which the file should not end in.
inline bool nextInside(text::PassLines& lines) {
    const bool found = lines.next();
    if (!found)
        lines.note(Finding::kCutShort);
    return found;
}

/// "%s %d", where the first word must stand for `keyword`.
bool scanKeywordLine(std::string_view line, const Word& keyword, int& number);

/// Scans numbers from the front of `line` until one fails or `numbers` is full. Returns how many
/// there are, or -1 where the line is blank, as the C library counts.
int scanNumbers(std::string_view line, std::span<double> numbers);

}  // namespace kvocaeio::package
