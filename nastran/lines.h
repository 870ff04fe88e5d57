/// The cards of a deck in one pass: lines, what belongs to them of the next line, and what one look
/// at them tells.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "nastran/findings.h"
#include "nastran/fixed_fields.h"
#include "text/pass_lines.h"

namespace kvocaeio::nastran {

/// A card as it stands in the deck: one line, its line feed included, or two.
struct Card {
    std::string_view raw;
    Glance glance;
    /// Length of the first of two lines in `raw`; `kOneLine` where the card is one line.
    std::size_t firstLine = kOneLine;

    static constexpr std::size_t kOneLine = std::string_view::npos;
    bool isMerged() const { return firstLine != kOneLine; }

    bool isComment() const { return raw.starts_with('$'); }
};

/// Whether a card takes its next line along.
enum class Continuations { kMerged, kApart };

class CardLines {
  public:
    CardLines(std::FILE* deck, Continuations continuations, FastWay fastWay,
              const text::Listener& listener)
        : lines_(deck, kLineBound, text::LineMode::kText, listener, Finding::kLineCut),
          merges_(continuations == Continuations::kMerged),
          glances_(fastWay == FastWay::kTaken) {}

    /// Takes the next card. False at the end of the deck.
    bool next() {
        if (!lines_.next())
            return false;
        card_ = {lines_.line(), glances_ ? glanceAt(lines_.line()) : Glance()};
        if (areNoted()) [[unlikely]]
            countColumns();
        if (merges_ && !card_.glance.isNameless)
            mergeContinuation();
        return true;
    }

    /// Valid until the next call of `next()`.
    const Card& card() const { return card_; }

    /// The lines of the card as they stand in the deck. The second is empty where the card is one
    /// line, and the first one again where the deck ends.
    std::string_view firstLine() const { return card_.raw.substr(0, card_.firstLine); }
    std::string_view secondLine() const {
        return card_.isMerged() ? lines_.line() : std::string_view();
    }
    /// Whether the card would take a next line along, but the deck ends with it.
    bool isOwnContinuation() const { return card_.isMerged() && isOwnContinuation_; }
    /// Whether a NUL hides the rest of the first line.
    bool isHidden() const {
        return !firstLine().ends_with('\n') && !isPiece(firstLine()) &&
               (card_.isMerged() ? !isOwnContinuation_ : !lines_.metEnd());
    }
    /// The part of `Card::raw` from `begin` to `end`, as a part of one of these lines.
    std::string_view part(std::size_t begin, std::size_t end) const;

    /// Whether somebody hears the notes.
    bool areNoted() const { return lines_.areNoted(); }
    /// Notes the first line of the card.
    void note(Finding kind, std::string_view subject = {});
    /// Notes a part of either line, by its column there.
    void note(Finding kind, std::string_view field, std::string_view subject);
    /// Notes the second line.
    void noteSecond(Finding kind, std::string_view subject = {}) {
        lines_.noteNamed(kind, subject);
    }
    void noteIncomplete() { lines_.noteAt(text::FileFinding::kReportIncomplete, {}, {}); }
    /// Notes what stands on no line in particular.
    void noteNowhere(Finding kind, std::string_view what) { lines_.noteAt(kind, {}, what); }

  private:
    // Lines arrive in pieces of at most 254 characters.
    static constexpr std::size_t kLineBound = 255;

    void mergeContinuation();
    void countColumns();
    text::LinePlace firstPlace();
    static bool isPiece(std::string_view line) {
        return line.size() + 1 == kLineBound && !line.ends_with('\n');
    }

    text::PassLines lines_;
    bool merges_;
    bool glances_;
    Card card_;
    std::string merged_;
    // Of a merged card: where its second line begins in `merged_`, and how many characters that has
    // lost before.
    std::size_t secondBegin_ = 0;
    std::size_t secondDropped_ = 0;
    // Where the first line of the card and the next line begin: pieces of a long line do so further
    // on.
    std::size_t firstColumn_ = 1;
    std::size_t nextColumn_ = 1;
    bool isOwnContinuation_ = false;
};

}  // namespace kvocaeio::nastran
