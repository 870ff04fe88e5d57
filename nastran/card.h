/// Tells which card a text is, and reads its numbers.
#pragma once

#include "nastran/card_text.h"
#include "nastran/lines.h"

namespace kvocaeio::nastran {

struct ReadCard {
    const CardRule* rule = nullptr;  ///< null for a comment, and where no known name stands
    bool isComplete = true;          ///< false where a number could not be read
};

class CardReader {
  public:
    /// Reads one card into `numbers()`; a property card's first float becomes the property value.
    ReadCard read(const Card& card);

    const CardNumbers& numbers() const { return numbers_; }

  private:
    bool scanNumbers(const CardRule& rule);

    CardNumbers numbers_;
    CardText normalised_;
};

}  // namespace kvocaeio::nastran
