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
        if (merges_ && !card_.glance.isNameless)
            mergeContinuation();
        return true;
    }

    /// Valid until the next call of `next()`.
    const Card& card() const { return card_; }

    void note(Finding kind) { lines_.note(kind); }

  private:
    // Lines arrive in pieces of at most 254 characters.
    static constexpr std::size_t kLineBound = 255;

    void mergeContinuation();

    text::PassLines lines_;
    bool merges_;
    bool glances_;
    Card card_;
    std::string merged_;
};

}  // namespace kvocaeio::nastran
