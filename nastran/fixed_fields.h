/// The fast ways through a deck: what one look at a line tells, and numbers in plain fixed fields
/// read where they stand. What they do not take goes through the normalised text, and what they
/// take comes out as it does there.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

#include "nastran/card_rules.h"
#include "nastran/card_text.h"
#include "text/eight_columns.h"
#include "text/scan.h"
#include "text/tokens.h"

namespace kvocaeio::nastran {

/// Whether the fast ways are taken; the tests do without, to hold both against each other.
enum class FastWay { kTaken, kOff };

/// What one look at a card tells. Without any of it the normalised text decides.
struct Glance {
    const CardRule* rule = nullptr;  ///< its name fills the first field, and none can be elsewhere
    bool isNameless = false;         ///< no name can be in the card
};

inline std::uint64_t wordAt(const char* columns) {
    std::uint64_t word;
    std::memcpy(&word, columns, sizeof word);
    return word;
}

/// Whether a name can begin in the text: all begin with one of three letters, and the
/// normalisation makes none of these.
inline bool canHoldName(std::string_view characters) {
    if (characters.size() >= kFieldWidth) {
        // Of what plain fields are made of nothing has the bit of the letters.
        const char* const last = characters.data() + characters.size() - kFieldWidth;
        std::uint64_t bits = wordAt(last);
        for (const char* next = characters.data(); next < last; next += kFieldWidth)
            bits |= wordAt(next);
        if ((bits & text::inEachByte(0x40)) == 0)
            return false;
    }
    return characters.find_first_of("CGP") != std::string_view::npos;
}

/// The rule of a card whose first eight columns hold a name of the table and nothing else, or null.
inline const CardRule* ruleOfFirstField(std::string_view card) {
    static constexpr auto kFields = [] {
        std::array<std::array<char, kFieldWidth>, kCardRules.size()> fields;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            fields[i].fill(' ');
            std::ranges::copy(kCardRules[i].name, fields[i].begin());
        }
        return fields;
    }();
    if (card.size() < kFieldWidth || card[0] < 'C')
        return nullptr;
    for (std::size_t i = 0; i < kFields.size(); ++i)
        if (std::memcmp(card.data(), kFields[i].data(), kFieldWidth) == 0)
            return &kCardRules[i];
    return nullptr;
}

inline Glance glanceAt(std::string_view line) {
    if (const CardRule* const rule = ruleOfFirstField(line))
        return {.rule = canHoldName(line.substr(kFieldWidth)) ? nullptr : rule};
    // Of a single line the normalisation makes no other names than "CTUBE" and "PTUBE", by the "E"
    // before a minus sign.
    return {.isNameless = !canHoldName(line) || (ruleIn(line) == nullptr && !holds(line, "TUB-"))};
}

/// Reads eight columns: blanks alone, which are zero, or one plain number between blanks: digits,
/// and, for a real, a minus sign before and a point among them. False, `value` untouched, for any
/// others.
template <class Number>
bool readField(const char* columns, Number& value) {
    constexpr bool kIsReal = std::is_same_v<Number, double>;
    if (wordAt(columns) == text::inEachByte(' ')) {
        value = 0;
        return true;
    }
    const std::string_view field = text::trimBlanks({columns, kFieldWidth});
    const auto digits = std::ranges::count_if(field, text::isDigit);
    const auto points = kIsReal ? std::ranges::count(field, '.') : 0;
    const auto signs = kIsReal && field[0] == '-' ? 1 : 0;
    if (digits == 0 || points > 1 || digits + points + signs < std::ssize(field))
        return false;
    text::Scan scan(field);
    if constexpr (kIsReal)
        return scan.real(value);
    else
        return scan.integer(value);
}

inline bool readInteger(const char* columns, int& value) {
    return text::readEightColumns(columns, value) || readField(columns, value);
}

/// Reads the first two numbers of a card whose rule is known at a glance. False where the
/// normalised text must be read.
inline bool readFixedOids(std::string_view line, int& first, int& second) {
    return line.size() >= 3 * kFieldWidth && readInteger(line.data() + kFieldWidth, first) &&
           readInteger(line.data() + 2 * kFieldWidth, second);
}

/// Reads a `CHEXA` of two lines whose first one has a plain number without a leading zero in each
/// field. Nothing but blanks and separators may stand before the first number behind these: the
/// first blank field is kept as a zero, the others are cleared, and the number is the tenth.
inline bool readFixedHexa(std::string_view card, CardNumbers& numbers) {
    constexpr std::size_t kOnFirstLine = 8;
    if (card.size() < kCardColumns)
        return false;
    for (std::size_t i = 0; i < kOnFirstLine; ++i) {
        const char* const columns = card.data() + (1 + i) * kFieldWidth;
        int value = 0;
        if (!readInteger(columns, value) || value == 0 ||
            columns[std::countr_zero(wordAt(columns) ^ text::inEachByte(' ')) / 8] == '0')
            return false;
        numbers.ints[i] = value;
    }
    std::size_t at = kCardColumns;
    std::size_t column = 0;
    for (; at < card.size() && !text::isDigit(card[at]); ++at) {
        const bool isSeparator = card[at] == ',' || card[at] == '+';
        if (!isSeparator && card[at] != ' ' && card[at] != '\n')
            return false;
        column += isSeparator ? kFieldWidth : card[at] == ' ' ? 1 : 0;
    }
    const std::string_view number = card.substr(at, kFieldWidth - column % kFieldWidth);
    // A line feed would join the digits on both sides of it.
    if (column < kFieldWidth || number.empty() || number[0] == '0' ||
        card.find('\n', at) != card.size() - 1)
        return false;
    numbers.ints[kOnFirstLine] = 0;
    return text::Scan(number).integer(numbers.ints[kOnFirstLine + 1]);
}

/// Reads the numbers of a card whose rule is known at a glance. False where the normalised text
/// must be read; no harm is done then to numbers that are not read again anyway.
inline bool readFixedFields(std::string_view card, const CardRule& rule, CardNumbers& numbers) {
    if (rule.hasFiller)
        return readFixedHexa(card, numbers);
    if (rule.floats > 0)  // property cards are few
        return false;
    const std::size_t needed = (1 + rule.ints() + rule.doubles) * kFieldWidth;
    std::array<char, kCardColumns> padded;
    const char* columns = card.data();
    if (card.size() <= needed) {
        if (!card.ends_with('\n'))
            return false;
        padded.fill(' ');
        card.copy(padded.data(), card.size() - 1);
        columns = padded.data();
    }
    for (std::size_t i = 0; i < rule.ints(); ++i)
        if (!readInteger(columns += kFieldWidth, numbers.ints[i]))
            return false;
    for (std::size_t i = 0; i < rule.doubles; ++i)
        if (!readField(columns += kFieldWidth, numbers.doubles[i]))
            return false;
    return true;
}

}  // namespace kvocaeio::nastran
