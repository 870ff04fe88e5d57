/// The text of one card, brought from fixed fields or commas to words parted by blanks.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

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

    /// Where the characters of the normalised text stand in the `raw` that it was made of, also
    /// where the filler was cleared since: offsets, `kPutIn` for what does not come from there.
    void findOrigins(std::string_view raw, LineFeeds lineFeeds,
                     std::vector<std::size_t>& origins) const;
    static constexpr std::size_t kPutIn = std::string_view::npos;

  private:
    void putField(std::string_view field);

    std::string expanded_;
    std::string characters_;
};

}  // namespace kvocaeio::nastran
