/// Numbers as bulk data writes them, and as the reader takes them in eight columns.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace kvocaeio::tidy::nastran {

/// Reads an integer with or without a sign. False for anything else; a number out of range becomes
/// the nearest end of `long long`.
bool readInteger(std::string_view text, long long& value);

/// Reads a real: "1.5", "+1.5E+3", "1.5D-3", "1.5-3" (without its letter), or an integer. False for
/// anything else, and for what is no finite number.
bool readReal(std::string_view text, double& value);

/// Whether the reader takes `text`, of at most eight characters, for what it means: a number
/// without a plus sign, with "E" before its exponent or a minus sign in place of it.
bool isPlainReal(std::string_view text);

/// Whether `text` has at most eight characters, digits alone.
bool isPlainInteger(std::string_view text);

/// A number for eight columns.
struct ShortReal {
    std::array<char, 8> characters;
    std::size_t size = 0;
    double value = 0.0;  ///< of the characters

    std::string_view text() const { return {characters.data(), size}; }
};

/// The eight columns that come nearest to a finite `value`, rounded to even digits as `printf`
/// rounds; with a decimal point where that costs nothing. What is too large for eight columns (from
/// 10^1000 on, which no double is) cannot occur; what is too small becomes zero.
ShortReal shortenReal(double value);

}  // namespace kvocaeio::tidy::nastran
