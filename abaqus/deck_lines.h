/// A deck's lines as the section readers see them, and the fields and parameters of one line.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/line_reader.h"
#include "text/observer.h"
#include "text/tokens.h"

namespace kvocaeio {

/// Lines arrive in pieces of at most 511 characters.
inline constexpr std::size_t kDeckLineBound = 512;

// The delimiter sets differ from place to place: a blank may stand inside some values, not in
// others.
inline constexpr text::Delimiters kKeywordField(",\n\r");
inline constexpr text::Delimiters kParameterScan(",= \n\r");
inline constexpr text::Delimiters kOpenValue(",=\n\r");
inline constexpr text::Delimiters kClosedValue("=, \n\r");
inline constexpr text::Delimiters kDataField(", \n\r");

/// Text of the parameter `name` on a keyword line, untrimmed; empty where the parameter or its
/// value is missing. The value is whatever token follows the first token equal to `name`.
inline std::string_view parameterValue(std::string_view keywordLine, std::string_view name,
                                       const text::Delimiters& valueDelimiters) {
    text::Tokens tokens(keywordLine);
    std::string_view token;
    while (tokens.next(kParameterScan, token))
        if (token == name) {
            tokens.next(valueDelimiters, token);
            break;
        }
    return token;
}

/// Whether one of a keyword line's comma-separated fields is the flag `name`.
inline bool hasFlag(std::string_view keywordLine, std::string_view name) {
    text::Tokens fields(keywordLine);
    std::string_view field;
    while (fields.next(kKeywordField, field))
        if (text::trimBlanks(field) == name)
            return true;
    return false;
}

/// The lines of one pass over a deck. Counts them while the observer listens.
template <class Observer>
class DeckLines {
  public:
    DeckLines(text::LineReader& reader, Observer& observer)
        : reader_(reader), observer_(observer) {}

    bool next() {
        if constexpr (Observer::kListens) {
            if (reader_.endsLine())
                ++number_;
        }
        const bool found = reader_.next();
        if constexpr (Observer::kListens) {
            if (found && line().size() + 1 == kDeckLineBound && !reader_.endsLine())
                note(text::Finding::kCut, line(), "the line is too long");
        }
        return found;
    }

    /// The line taken last; at the end of the deck still the last one.
    std::string_view line() const { return reader_.line(); }

    /// Calls `read()` for each data line up to the next keyword line, which is given back, or the
    /// end of the deck. Comment lines are passed over; all other lines are data, blank ones too.
    template <class ReadDataLine>
    void forEachDataLine(const ReadDataLine& read) {
        while (next()) {
            const std::string_view text = line();
            if (text.empty() || text[0] != '*') {
                read();
            } else if (text.size() == 1 || text[1] != '*') {
                reader_.giveBack();
                return;
            }
        }
    }

    void note(text::Finding finding, std::string_view what, std::string_view why) {
        if constexpr (Observer::kListens)
            observer_.note(finding, number_, what, why);
    }

  private:
    text::LineReader& reader_;
    Observer& observer_;
    std::size_t number_ = 1;
};

}  // namespace kvocaeio
