/// Whether the reader takes a deck whole as it stands.
#pragma once

#include <cstddef>
#include <string_view>

#include "tidy/nastran/card_table.h"

namespace kvocaeio::tidy::nastran {

/// Looks at each line of a deck until one would be read otherwise than it is meant, or at all.
/// Knows nothing of what other forms mean: what is not surely plain is not.
class PlainDeck {
  public:
    /// Takes one line, without its line end. False where the deck is not plain.
    bool take(std::string_view line);

    /// Whether the deck, at its end, is one that the reader takes.
    bool isWhole() const { return nodes_ > 0 && elements_ > 0 && !isInHexa_; }

    /// What begins in the line taken last.
    enum class Thing { kNone, kNode, kElement, kShell, kProperty };
    Thing thing() const { return thing_; }
    int number() const { return number_; }
    std::string_view name() const { return rule_->name; }

  private:
    bool takeOther(std::string_view line);
    bool takeGrid(std::string_view line);
    bool takeElement(std::string_view line, std::size_t corners);
    bool takeHexa(std::string_view line);
    bool takeHexaEnd(std::string_view line);
    bool takeShell(std::string_view line);
    bool takeProperty(std::string_view line);

    Thing thing_ = Thing::kNone;
    const CardRule* rule_ = nullptr;
    int number_ = 0;
    bool isInHexa_ = false;  // the next line is the continuation of a `CHEXA`
    bool isEnded_ = false;   // what comes now is no card, but one for the reader
    std::size_t nodes_ = 0;
    std::size_t elements_ = 0;
    int properties_ = 0;
};

}  // namespace kvocaeio::tidy::nastran
