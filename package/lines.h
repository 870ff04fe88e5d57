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
/// host has stopped the import. `cutKind` is noted for lines that are cut; a file that several
/// passes read leaves that to `noteLines`.
template <class Read>
bool passOver(InputFile& file, const text::Listener& listener, const Read& read,
              const text::FindingKind* cutKind = nullptr) {
    if (!file.open(listener))
        return false;
    text::PassLines lines(file.stream.get(), kLineBound, text::LineMode::kText, listener, cutKind);
    read(lines);
    file.close();
    return !listener.hasStopped();
}

/// Goes over a file that several passes read, for what is odd about its lines as such: long ones,
/// NUL bytes, an end mark. Does nothing while nobody listens. False as `passOver` is.
bool noteLines(InputFile& file, const text::Listener& listener);

/// Notes a line that is read as one of those of `keyword`, given in upper case, though its first
/// word does not begin with that.
void noteWordInLine(text::PassLines& lines, std::string_view keyword);

/// Whether the first word of a line begins with `keyword`, given in upper case.
bool beginsWith(std::string_view line, std::string_view keyword);

/// Whether the line begins with a number, as a row does.
bool beginsWithInteger(std::string_view line);

/// "%s %d", where the first word must stand for `keyword`.
bool scanKeywordLine(std::string_view line, const Word& keyword, int& number);

/// Scans numbers from the front of `line` until one fails or `numbers` is full. Returns how many
/// there are, or -1 where the line is blank, as the C library counts. `behind` is set to the end of
/// the last of them.
int scanNumbers(std::string_view line, std::span<double> numbers, const char*& behind);

}  // namespace kvocaeio::package
