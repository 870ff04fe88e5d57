/// Random Nastran decks: mostly sound ones in every layout, with a dose of what goes wrong in
/// files.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "text/random.h"

namespace kvocaeio::test {

/// Makes decks, or single cards, the same ones from the same seed.
class DeckGenerator {
  public:
    explicit DeckGenerator(std::uint64_t seed);

    std::string deck();
    /// A deck of fixed fields most of which are plain, with cards that stop short of that by a
    /// character, a field, a length or a name.
    std::string nearlyPlainDeck();
    std::vector<std::string> nearlyPlainCard();
    /// The lines of one card, each with its line feed.
    std::vector<std::string> card();
    /// Changes a few characters of a line.
    void mutate(std::string& line);
    /// Any characters that the text steps look at, in any order.
    std::string junk();

  private:
    enum class Layout { kFixed, kCommas, kBlanks, kLarge };

    std::string nearlyPlainField();
    std::vector<std::string> plainCard();
    void spoil(std::string& line);
    std::string id();
    std::string real();
    std::string nodeId();
    std::vector<std::string> gridFields();
    std::vector<std::string> elementFields();
    std::vector<std::string> propertyFields();
    std::string remark();

    std::vector<std::string> laidOut(const std::vector<std::string>& fields);
    std::vector<std::string> inColumns(const std::vector<std::string>& fields, std::size_t width);
    std::vector<std::string> inCommas(const std::vector<std::string>& fields);
    std::string inBlanks(const std::vector<std::string>& fields);
    std::string placed(const std::string& field, std::size_t width);
    std::string label();

    template <std::size_t kCount>
    std::string oneOf(const char* const (&words)[kCount]) {
        return words[random_.below(kCount)];
    }

    Random random_;
    Layout layout_;
    std::size_t maxId_;
    std::size_t mutationsOneIn_;
    int nextProperty_ = 1;
    bool rightAligned_;
};

}  // namespace kvocaeio::test
