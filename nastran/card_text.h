/// The text of one card, brought from fixed fields or commas to words parted by blanks.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kvocaeio::nastran {

/// What becomes of the line feeds in a card's text.
enum class LineFeeds {
    kPad,   ///< they go; one before column 72 leaves blanks up to there
    kKeep,  ///< they stay
};

/// Fields stand in columns of this width.
inline constexpr std::size_t kFieldWidth = 8;

/// Columns of a line before its continuation marker.
inline constexpr std::size_t kCardColumns = 72;

/// The normalised form of one card at a time. Its memory is used again for the next one.
class CardText {
  public:
    /// Brings `raw` into its normalised form. In order:
    ///
    /// - line feeds are treated as told;
    /// - commas and plus signs become eight blanks each;
    /// - each group of eight characters that holds blanks alone (the space character) reads zero:
    ///   seven blanks and "0", for a shorter last group too;
    /// - a blank follows every eighth character, so that full fields part;
    /// - a minus sign gets an "E" in front where it stands behind anything but a blank, "e" or "E".
    ///
    /// All steps go by position, so that what does not stand in columns of eight is cut in two or
    /// gets zeros between: decks in free fields are read that way.
    void normalise(std::string_view raw, LineFeeds lineFeeds);

    /// Wipes the zeros and "EL" labels that the two lines of a `CHEXA` card leave between its
    /// numbers: the first of them is kept, later ones become blanks, and an "EL" takes what follows
    /// it along.
    void clearHexFiller();

    std::string_view view() const { return characters_; }

    /// Where the characters of `view()` come from, asked from its beginning to its end.
    class Origins {
      public:
        /// `raw` and `lineFeeds` are those that `text` was made of. Both are borrowed.
        Origins(const CardText& text, std::string_view raw, LineFeeds lineFeeds)
            : raw_(raw), expanded_(text.expanded_), lineFeeds_(lineFeeds) {}

        static constexpr std::size_t kPutIn = std::string_view::npos;
        /// The offset in the raw text of the character at `position`, which is not below that of
        /// the last call; `kPutIn` where it does not stand there.
        std::size_t originOf(std::size_t position);

      private:
        std::size_t rawOffset(std::size_t expandedOffset);

        std::string_view raw_;
        std::string_view expanded_;
        LineFeeds lineFeeds_;
        // How far the walk is: a group of columns in both texts, and a character of the raw one,
        // its column and its offset in the expanded text.
        std::size_t group_ = 0;
        std::size_t normalisedGroup_ = 0;
        std::size_t at_ = 0;
        std::size_t column_ = 0;
        std::size_t expandedAt_ = 0;
    };

  private:
    void putField(std::string_view field);

    std::string expanded_;
    std::string characters_;
};

}  // namespace kvocaeio::nastran
