/// Numbers in as few characters as a format's fields have.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace kvocaeio::host {

/// Writes numbers with the fewest digits from which the same number is read, and with as many as
/// fit where a field is too narrow for them: "12.5", ".001", "1.5E-7". There is always a point.
class NumberField {
  public:
    static constexpr std::size_t kMostCharacters = 24;

    /// Fields of so many characters, at least 8. Where `withLetter` is not set, the letter of an
    /// exponent is left out where a digit would have to go otherwise: "1.5-7".
    NumberField(std::size_t width, bool withLetter) : width_(width), withLetter_(withLetter) {}

    /// The text is valid until the next call. `value` is finite.
    std::string_view write(double value);

    /// What is read from the text of the latest call.
    double written() const { return written_; }
    /// By how much a number that was written differs from what is read at most.
    double largestChange() const { return largestChange_; }

  private:
    struct Digits;

    bool fits(const Digits& digits);
    void put(const Digits& digits, bool isFixed, std::string_view letter);

    std::size_t width_;
    bool withLetter_;
    double written_ = 0.0;
    double largestChange_ = 0.0;
    std::array<char, 64> text_{};
    std::size_t size_ = 0;
};

}  // namespace kvocaeio::host
