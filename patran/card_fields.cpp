/// Fields as the formats "%8c" with "%8d", "%16c" with `atof`, and "%16f" read them.
#include "patran/card_fields.h"

#include <bit>
#include <cstdint>
#include <cstring>

#include "text/scan.h"

namespace kvocaeio {

namespace {

// The columns of a field that the card reaches.
std::string_view fieldOf(std::string_view card, std::size_t first, std::size_t width) {
    return first < card.size() ? card.substr(first, width) : std::string_view();
}

constexpr std::uint64_t inEachByte(std::uint64_t value) {
    return value * 0x0101010101010101;
}

// Reads eight columns that hold blanks and then digits, as nearly all do, at once. False for any
// others.
bool readPlainColumns(const char* columns, int& number) {
    if constexpr (std::endian::native != std::endian::little)
        return false;
    std::uint64_t digits;  // the first column in the lowest byte
    std::memcpy(&digits, columns, sizeof digits);
    digits ^= inEachByte('0');  // a digit becomes its value, a blank 0x10
    const std::uint64_t blankBits = digits & inEachByte(0x10);
    const std::uint64_t blanks = (blankBits >> 4) * 0xFF;
    digits ^= blankBits;
    const bool digitsOnly = ((digits + inEachByte(6)) & inEachByte(0xF0)) == 0;
    const bool blanksInFront = (blanks & (blanks + 1)) == 0 && ~blanks != 0;
    if (!digitsOnly || !blanksInFront || (digits & blanks) != 0)
        return false;
    digits = (digits * 10 + (digits >> 8)) & 0x00FF00FF00FF00FF;
    digits = (digits * 100 + (digits >> 16)) & 0x0000FFFF0000FFFF;
    number = static_cast<int>((digits * 10'000 + (digits >> 32)) & 0xFFFFFFFF);
    return true;
}

}  // namespace

void readColumns(std::string_view card, std::size_t first, std::size_t width, int& number) {
    const std::string_view field = fieldOf(card, first, width);
    if (field.size() != kIntegerWidth || !readPlainColumns(field.data(), number))
        text::Scan(field).integer(number);
}

std::array<float, 3> coordinatesOf(std::string_view card) {
    std::array<float, 3> coordinates;
    for (std::size_t i = 0; i < coordinates.size(); ++i)
        coordinates[i] =
            static_cast<float>(text::toReal(fieldOf(card, i * kRealWidth, kRealWidth)));
    return coordinates;
}

std::array<float, 2> propertyValuesOf(std::string_view card) {
    std::array<float, 2> values{};
    text::Scan scan(card);
    if (scan.real(values[0], kRealWidth))
        scan.real(values[1], kRealWidth);
    return values;
}

}  // namespace kvocaeio
