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
        const bool found = lines_.next();
        if (lines_.areNoted()) [[unlikely]]
            noteCard(found);
        return line();
    }

    /// The line taken last.
    std::string_view line() const { return lines_.line(); }

    /// Whether the header card is the file's last line once more, at the end of the file.
    bool isLastLineRepeated() const { return isLastLineRepeated_; }

    /// Whether the file has ended inside a packet; known while somebody listens.
    bool isCardMissing() const { return isCardMissing_; }

    /// Passes over `count` lines, or all that the file still has.
    void skip(int count) {
        lines_.setBound(skipBound_);
        for (; count > 0 && lines_.next(); --count) {
            if (lines_.areNoted()) [[unlikely]]
                noteCard(true);
        }
        lines_.setBound(kLineBound);
    }

    // As in `PassLines`: notes of the line taken last.
    bool areNoted() const { return lines_.areNoted(); }
    text::LinePlace place() { return lines_.place(); }
    template <class... What>
    void note(Finding finding, What... what) {
        lines_.note(finding, what...);
    }
    void noteNamed(Finding finding, std::string_view subject) {
        lines_.noteNamed(finding, subject);
    }
    void noteAt(Finding finding, const text::LinePlace& place, std::string_view what,
                std::string_view subject = {}) {
        lines_.noteAt(finding, place, what, subject);
    }

    /// Takes lines, to no other end, until one holds more than blanks or a comment.
    bool findContent() {
        while (lines_.next())
            if (line().find_first_not_of(" \t\r\n\v\f") < line().find('!'))
                return true;
        return false;
    }

    HeaderCard header;

  private:
    // Takes the next line that is no comment as a header card. False once the end of the file is
    // known. It is not known yet where the last line ended in a line feed: that line then serves as
    // one more header.
    bool nextHeader() {
        while (!lines_.metEnd()) {
            isLastLineRepeated_ = !lines_.next();
            if (!line().starts_with('!')) {
                header.readFixed(line());
                return true;
            }
        }
        return false;
    }

    // Notes what a data card should not be. A title may begin with any character.
    void noteCard(bool found) {
        if (isLastLineRepeated_)
            return;
        if (!found) {
            lines_.note(Finding::kCardMissing);
            isCardMissing_ = true;
        } else if (line().starts_with('!') && header.it != kTitlePacket)
            lines_.note(Finding::kCommentAsCard);
    }

    text::PassLines lines_;
    std::size_t skipBound_;
    bool isLastLineRepeated_ = false;
    bool isCardMissing_ = false;
};

}  // namespace kvocaeio::patran
