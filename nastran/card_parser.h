/// Recognises one card and reads its numbers.
#pragma once

#include <array>
#include <string_view>

#include "nastran/card_rules.h"
#include "nastran/card_text.h"

namespace kvocaeio {

/// The numbers of the latest cards. They are never cleared: a field that cannot be read keeps what
/// the card before it left in its place, whatever card that was.
struct CardNumbers {
    std::array<int, 10> ints{};
    std::array<float, 5> floats{};
    std::array<double, 3> doubles{};
};

class CardParser {
  public:
    /// Reads one card into `numbers()`; a property card's first float becomes the property value.
    /// `card` is one line, its line feed included, or, with `merged`, several.
    CardCode parse(std::string_view card, bool merged);

    const CardNumbers& numbers() const { return numbers_; }

  private:
    CardCode parseText(std::string_view card);
    bool readFixedFields(std::string_view card, const CardRule& rule);
    bool readFixedHexa(std::string_view card);
    void readText(const CardRule& rule);
    void computePropertyValue(PropertyValue value);

    CardNumbers numbers_;
    CardText text_;
};

/// A field of eight columns, parted from its neighbours: blank or one whole number, nothing else.
/// False, `value` untouched, for any other.
bool readFixedField(std::string_view field, int& value);

/// The rule of a card whose first eight columns hold a name of the table and nothing else, or null.
const CardRule* ruleOfFirstField(std::string_view card);

/// The front of a text that holds all names standing in it; empty where it has no capital letter.
std::string_view namePart(std::string_view text);

/// Whether the normalisation may make a "CTUBE" or "PTUBE" of what stands in the text, by the "E"
/// before a minus sign. It makes no other names of a single line.
bool becomesTube(std::string_view text);

/// Whether one of `names` stands anywhere in the text.
template <class Names>
bool holdsAny(std::string_view text, const Names& names) {
    for (const std::string_view name : names)
        if (text.find(name) != std::string_view::npos)
            return true;
    return false;
}

}  // namespace kvocaeio
