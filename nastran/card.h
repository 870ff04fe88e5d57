/// Tells which card a text is, and reads its numbers.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "nastran/card_text.h"
#include "nastran/lines.h"

namespace kvocaeio::nastran {

struct ReadCard {
    const CardRule* rule = nullptr;  ///< null for a comment, and where no known name stands
    bool isNormalised = false;       ///< its numbers were read from the normalised text
};

/// Where a number was read: offsets into `Card::raw`. Both are 0 for a zero that the normalisation
/// has put in.
struct NumberOrigin {
    std::size_t begin = 0;
    std::size_t end = 0;
};

class CardReader {
  public:
    /// Reads one card into `numbers()`; a property card's first float becomes the property value.
    ReadCard read(const Card& card);

    const CardNumbers& numbers() const { return numbers_; }

    /// Where the numbers of the card that was read last stand in it, one after the other. Those
    /// that could not be read, and so keep their values of an earlier card, are missing at the end.
    class Origins {
      public:
        /// False behind the last number that was read.
        bool next(NumberOrigin& origin);

      private:
        friend class CardReader;
        Origins(const CardReader& reader, std::string_view raw)
            : reader_(reader), characters_(reader.normalised_, raw, LineFeeds::kPad) {}

        const CardReader& reader_;
        CardText::Origins characters_;
        std::size_t number_ = 0;
    };
    /// Valid until the next card is read.
    Origins origins(const Card& card, const ReadCard& read);

  private:
    static constexpr std::size_t kMostNumbers = 10;

    void scanNumbers(const CardRule& rule);

    CardNumbers numbers_;
    CardText normalised_;
    // Ends of the name and of the numbers that were read in the normalised text.
    std::array<const char*, 1 + kMostNumbers> ends_{};
    std::size_t endCount_ = 0;
};

}  // namespace kvocaeio::nastran
