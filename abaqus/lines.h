/// A deck's lines as the section readers see them, and the fields and parameters of one line.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string_view>

#include "abaqus/findings.h"
#include "text/pass_lines.h"
#include "text/tokens.h"

namespace kvocaeio::abaqus {

/// Lines arrive in pieces of at most 511 characters.
inline constexpr std::size_t kLineBound = 512;

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

/// The lines of one pass over a deck, from the file's present position on.
class DeckLines : public text::PassLines {
  public:
    DeckLines(std::FILE* deck, const text::Listener& listener)
        : PassLines(deck, kLineBound, text::LineMode::kBinary, listener, Finding::kLineCut),
          isQuiet_(listener.isQuiet) {}

    /// Whether no progress lines are to be printed.
    bool isQuiet() const { return isQuiet_; }

    /// Calls `read()` for each data line up to the next keyword line, which is given back, or the
    /// end of the deck. Comment lines are passed over; all other lines are data, blank ones too.
    template <class Read>
    void forEachDataLine(const Read& read) {
        while (next()) {
            const std::string_view taken = line();
            if (taken.empty() || taken[0] != '*') {
                read();
            } else if (taken.size() == 1 || taken[1] != '*') {
                giveBack();
                return;
            }
        }
    }

    /// No further section is read in this pass.
    void endPass() { ended_ = true; }
    bool hasEnded() const { return ended_; }

    // What the notes go by; unknown while nobody listens.

    /// Whether a keyword has been met in this pass.
    void meetKeyword() { metKeyword_ = true; }
    bool hasMetKeyword() const { return metKeyword_; }

    /// The next line is meant as a part of the keyword line in hand.
    void continueKeyword() { keywordLine_ = place().line; }
    bool continuesKeyword() { return keywordLine_ != 0 && place().line == keywordLine_ + 1; }

    /// The line in hand is taken once more, since no other is left.
    void repeatLine() { isRepeated_ = true; }
    bool isRepeated() const { return isRepeated_; }

  private:
    bool isQuiet_;
    bool ended_ = false;
    bool metKeyword_ = false;
    bool isRepeated_ = false;
    std::size_t keywordLine_ = 0;
};

}  // namespace kvocaeio::abaqus
