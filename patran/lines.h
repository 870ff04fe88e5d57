/// The lines of a pass over a neutral file: header cards, and the cards after them.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string_view>

#include "patran/card.h"
#include "patran/findings.h"
#include "text/pass_lines.h"

namespace kvocaeio::patran {

/// Lines arrive in pieces of at most 224 characters.
inline constexpr std::size_t kLineBound = 225;

/// All lines of a pass go through one buffer. At the end of the file it keeps the line read last,
/// whatever that was, which is then taken for any card that is still wanted.
class PacketLines {
  public:
    /// `skipBound`: that of the lines which `skip` passes over, at least `kLineBound`.
    PacketLines(std::FILE* file, const text::Listener& listener, std::size_t skipBound = kLineBound)
        : lines_(file, skipBound, text::LineMode::kText, listener, Finding::kLineCut),
          skipBound_(skipBound) {
        lines_.setBound(kLineBound);
    }

    /// The packet loop. Calls `take` for each packet before packet 99, its header card being
    /// `header`; a packet for which that returns false is skipped by its number of cards. Returns
    /// whether there is a packet 99.
    template <class Take>
    bool forEachPacket(const Take& take) {
        while (nextHeader()) {
            if (header.it == kEndPacket)
                return true;
            if (!take())
                skip(header.kc);
        }
        return false;
    }

    /// Takes the next line, comments included.
    std::string_view nextCard() {
        lines_.next();
        return line();
    }

    /// The line taken last.
    std::string_view line() const { return lines_.line(); }

    /// Passes over `count` lines, or all that the file still has.
    void skip(int count) {
        lines_.setBound(skipBound_);
        for (; count > 0 && lines_.next(); --count) {
        }
        lines_.setBound(kLineBound);
    }

    /// Notes the line taken last.
    void note(Finding finding) { lines_.note(finding); }

    HeaderCard header;

  private:
    // Takes the next line that is no comment as a header card. False once the end of the file is
    // known. It is not known yet where the last line ended in a line feed: that line then serves as
    // one more header.
    bool nextHeader() {
        while (!lines_.metEnd()) {
            const std::string_view card = nextCard();
            if (!card.starts_with('!')) {
                header.readFixed(card);
                return true;
            }
        }
        return false;
    }

    text::PassLines lines_;
    std::size_t skipBound_;
};

}  // namespace kvocaeio::patran
