/// A second, plain reader of Nastran decks for the tests: strings and sscanf, one step after the
/// other, nothing clever.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

namespace kvocaeio::test {

// The steps that bring a card's text to words parted by blanks.
std::string padLine(std::string characters);
std::string expandSeparators(const std::string& characters);
std::string fillBlankFields(const std::string& characters);
std::string splitFields(const std::string& characters);
std::string fixExponent(const std::string& characters);
std::string clearHexFiller(std::string characters);

/// `line` as it stands behind the first line of a card.
std::string continuationOf(const std::string& line);

/// Whether the next line of the file belongs to this one.
bool takesNextLine(const std::string& line);

/// The numbers of a pass. Fields have at most eight characters, so that no int overflows.
struct NaiveNumbers {
    std::array<int, 10> ints{};
    std::array<float, 5> floats{};
    std::array<double, 3> doubles{};
};

/// Reads one card, one line or two, and gives its code.
int naiveParse(const std::string& card, NaiveNumbers& numbers);

/// The lines of a file as text mode and `fgets` with a bound of 255 deliver them.
class NaiveLines {
  public:
    explicit NaiveLines(const std::string& bytes);

    /// At the end of the file false, and `line` stays as it is.
    bool next(std::string& line);
    /// The next line with the continuation that belongs to it.
    bool nextCard(std::string& card);

  private:
    std::string text_;
    std::size_t position_ = 0;
};

/// What the reader hands out. Rows that no card wrote are absent here.
struct NaiveDeck {
    bool result = false;
    int nodeCount = 0;
    int elemCount = 0;
    int sectionCount = 0;
    int propertiesCount = 0;
    std::map<int, std::array<float, 4>> nodes;
    std::map<int, std::array<int, 9>> elements;
    std::vector<std::array<int, 3>> sections;
    /// Cards per code, as the element pass meets them.
    std::map<int, int> cards;
};

NaiveDeck naiveRead(const std::string& bytes);

}  // namespace kvocaeio::test
