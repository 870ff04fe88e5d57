/// Numbers of the tidy deck: those of the original where they fit into eight columns.
#pragma once

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <vector>

namespace kvocaeio::tidy::nastran {

/// Numbers of nodes or elements. First all are added, then new ones are chosen for those that do
/// not fit.
class Numbering {
  public:
    static constexpr int kMost = 99'999'999;

    /// Adds a number above 0.
    void add(int number) {
        if (isChosen_)
            return;
        if (number > kMost)
            large_.push_back(number);
        else if (number > largest_)
            largest_ = number;
        if (!used_.empty() && number <= kMost)
            used_[static_cast<std::size_t>(number)] = true;
    }
    /// Chooses the new numbers: those after the largest one, or if these do not suffice, those that
    /// are free between. Returns false where it takes another round of `add` to know the latter;
    /// nothing is added then. In a round after the choice nothing is added any more.
    bool choose();

    /// The number in the tidy deck; 0 where no number was left.
    int numberOf(int number) const { return number <= kMost ? number : numberOfLarge(number); }

  private:
    int numberOfLarge(int number) const;

    bool isChosen_ = false;
    int largest_ = 0;
    std::vector<int> large_;  // once chosen, in order and each once
    std::vector<int> chosen_;
    std::vector<bool> used_;  // by number, in the second round
};

/// Numbers of properties: 1 to N in the order of their cards, then those that have no card.
class PropertyNumbering {
  public:
    /// Adds the next card's number.
    void add(int number) { numbers_.try_emplace(number, ++cards_); }
    /// The number in the tidy deck of the property that an element names.
    int numberOf(int number);
    void clear() { *this = {}; }

  private:
    std::unordered_map<int, int> numbers_;
    int cards_ = 0;
    int others_ = 0;
    int lastNumber_ = 0;  // mostly the next element names the same one
    int last_ = 0;
};

}  // namespace kvocaeio::tidy::nastran
