/// Numbers in the fixed columns of a card, and the free reals of a property card.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "text/eight_columns.h"

namespace kvocaeio {

inline constexpr std::size_t kIntegerWidth = 8;
inline constexpr std::size_t kRealWidth = 16;

/// Reads the integer in the columns from `first` on. A field that the card does not reach, or that
/// holds no digits, leaves `number` as it is; a field that the card's end cuts counts as it stands.
void readInteger(std::string_view card, std::size_t first, std::size_t width, int& number);

/// The same for eight columns. Nearly all hold blanks and then digits.
inline void readInteger(std::string_view card, std::size_t first, int& number) {
    if (card.size() < first + kIntegerWidth || !text::readEightColumns(card.data() + first, number))
        readInteger(card, first, kIntegerWidth, number);
}

/// The integers in the first columns of a card, eight each; 0 where there is none.
template <std::size_t kCount>
std::array<int, kCount> integersOf(std::string_view card) {
    std::array<int, kCount> integers{};
    for (std::size_t i = 0; i < kCount; ++i)
        readInteger(card, i * kIntegerWidth, integers[i]);
    return integers;
}

/// The property id on the first data card of an element, in its third field; 0 where there is none.
inline int elementPropertyIdOf(std::string_view card) {
    int id = 0;
    readInteger(card, 2 * kIntegerWidth, id);
    return id;
}

/// x, y, z in the first columns of a card, sixteen each; 0 where there is none.
std::array<float, 3> coordinatesOf(std::string_view card);

/// The first two reals of a property card, which are parted by white space or by their width; 0
/// from the first one on that cannot be read.
std::array<float, 2> propertyValuesOf(std::string_view card);

}  // namespace kvocaeio
