/// A neutral file as one pass over it sees it: header cards and the lines behind them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string_view>

#include "patran/header_card.h"
#include "text/line_reader.h"

namespace kvocaeio {

/// Lines arrive in pieces of at most 224 characters.
inline constexpr std::size_t kLineBound = 225;

/// All lines of a pass go through one buffer. At the end of the file it keeps the line read last,
/// whatever that was, which is then taken for any card that is still wanted.
class PacketLines {
  public:
    /// `skipBound`: that of the lines which `skip` passes over.
    explicit PacketLines(std::FILE* file, std::size_t skipBound = kLineBound)
        : reader_(file, std::max(skipBound, kLineBound), text::LineMode::kText),
          skipBound_(skipBound) {
        reader_.setBound(kLineBound);
    }

    /// Takes the next line that is no comment as a header card. False once the end of the file is
    /// known. It is not known yet where the last line ended in a line feed: that line then serves
    /// as one more header.
    bool nextHeader() {
        while (!reader_.metEnd()) {
            const std::string_view card = nextCard();
            if (!card.starts_with('!')) {
                header.readFixed(card);
                return true;
            }
        }
        return false;
    }

    /// Takes the next line, comments included.
    std::string_view nextCard() {
        reader_.next();
        return line();
    }

    /// The line taken last.
    std::string_view line() const { return reader_.line(); }

    /// Passes over `count` lines, or all that the file still has.
    void skip(int count) {
        reader_.setBound(skipBound_);
        for (; count > 0 && reader_.next(); --count) {
        }
        reader_.setBound(kLineBound);
    }

    HeaderCard header;

  private:
    text::LineReader reader_;
    std::size_t skipBound_;
};

}  // namespace kvocaeio
