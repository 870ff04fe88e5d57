/// Decimal numbers in fields of eight columns, all digits at a time in one machine word.
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace kvocaeio::text {

/// The byte order in which these functions work; elsewhere they take nothing.
inline constexpr bool kEightColumnsWork = std::endian::native == std::endian::little;

constexpr std::uint64_t inEachByte(std::uint64_t value) {
    return value * 0x0101'0101'0101'0101;
}

/// The number of eight digits, each as its value in a byte, the first in the lowest.
constexpr int valueOfDigits(std::uint64_t digits) {
    digits = (digits * 10 + (digits >> 8)) & 0x00FF'00FF'00FF'00FF;
    digits = (digits * 100 + (digits >> 16)) & 0x0000'FFFF'0000'FFFF;
    return static_cast<int>((digits * 10'000 + (digits >> 32)) & 0xFFFF'FFFF);
}

/// Reads eight characters that are blanks and then digits, at least one. False, `value` untouched,
/// for any others.
inline bool readEightColumns(const char* columns, int& value) {
    if (!kEightColumnsWork)
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
    value = valueOfDigits(digits);
    return true;
}

/// Reads the digits at the front of eight characters. Returns how many there are; without any,
/// `value` is 0.
inline int readLeadingDigits(const char* columns, int& value) {
    if (!kEightColumnsWork)
        return value = 0;
    std::uint64_t digits;
    std::memcpy(&digits, columns, sizeof digits);
    digits ^= inEachByte('0');
    const std::uint64_t others =
        (((digits & inEachByte(0x7F)) + inEachByte(0x76)) | digits) & inEachByte(0x80);
    const int count = std::countr_zero(others) / 8;
    if (count == 0)
        return value = 0;
    value = valueOfDigits(digits << 8 * (8 - count));  // zeros in front
    return count;
}

/// Writes a number as "%d" with a width of at most eight does. `to` has room for eight
/// characters, of which those behind the number may be overwritten. Gives the place behind the
/// number; null, nothing written, where it is negative or has more than eight digits.
inline char* writeEightColumns(char* to, int value, int width) {
    if (!kEightColumnsWork || value < 0 || value > 99'999'999)
        return nullptr;
    // Halves the digits into groups of four, two and one. The divisions, by multiplication, are
    // exact for groups of that size.
    const auto number = static_cast<std::uint32_t>(value);
    std::uint64_t digits = number / 10'000 | std::uint64_t{number % 10'000} << 32;
    const std::uint64_t hundreds = (digits * 5243 >> 19) & 0x0000'007F'0000'007F;
    digits = hundreds | (digits - hundreds * 100) << 16;
    const std::uint64_t tens = (digits * 103 >> 10) & 0x000F'000F'000F'000F;
    digits = tens | (digits - tens * 10) << 8;
    const int blanks = std::min(std::countr_zero(digits) / 8, 7);
    const std::uint64_t inBlanks = (std::uint64_t{1} << 8 * blanks) - 1;
    std::uint64_t columns = digits + inEachByte('0') - (inEachByte('0' - ' ') & inBlanks);
    const int length = std::max(width, 8 - blanks);
    columns >>= 8 * (8 - length);
    std::memcpy(to, &columns, sizeof columns);
    return to + length;
}

}  // namespace kvocaeio::text
