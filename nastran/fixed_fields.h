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

#include "nastran/card_rules.h"
#include "nastran/card_text.h"
#include "text/eight_columns.h"
#include "text/powers_of_ten.h"
#include "text/scan.h"

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
    // Of what plain fields are made of nothing has the bit of the letters.
    std::uint64_t bits = 0;
    if (characters.size() < kFieldWidth) {
        for (const char c : characters)
            bits |= static_cast<unsigned char>(c);
    } else {
        const char* const last = characters.data() + characters.size() - kFieldWidth;
        bits = wordAt(last);
        for (const char* next = characters.data(); next < last; next += kFieldWidth)
            bits |= wordAt(next);
    }
    return (bits & text::inEachByte(0x40)) != 0 &&
           characters.find_first_of("CGP") != std::string_view::npos;
}

/// The rule of a card whose first eight columns hold a name of the table and nothing else, or null.
inline const CardRule* ruleOfFirstField(std::string_view card) {
    static constexpr auto kKeys = [] {
        std::array<std::uint64_t, kCardRules.size()> keys{};
        for (std::size_t i = 0; i < keys.size(); ++i) {
            std::array<char, kFieldWidth> field;
            field.fill(' ');
            std::ranges::copy(kCardRules[i].name, field.begin());
            keys[i] = std::bit_cast<std::uint64_t>(field);
        }
        return keys;
    }();
    if (card.size() < kFieldWidth || card[0] < 'C')
        return nullptr;
    const std::uint64_t key = wordAt(card.data());
    for (std::size_t i = 0; i < kKeys.size(); ++i)
        if (kKeys[i] == key)
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

inline constexpr std::uint64_t kBlankField = text::inEachByte(' ');

/// A field with the blanks at its end moved to its front.
inline std::uint64_t rightJustified(std::uint64_t field) {
    return std::rotl(field, std::countl_zero(field ^ kBlankField) / 8 * 8);
}

/// Reads eight columns: blanks alone, which are zero, or one whole number between blanks. False,
/// `value` untouched, for any others.
inline bool readField(const char* columns, int& value) {
    const std::uint64_t field = wordAt(columns);
    if (field == kBlankField) {
        value = 0;
        return true;
    }
    if (text::readEightColumns(columns, value))
        return true;
    const auto justified = std::bit_cast<std::array<char, kFieldWidth>>(rightJustified(field));
    return text::readEightColumns(justified.data(), value);
}

/// The same for a real: a minus sign or none, then digits with a point or none.
inline bool readField(const char* columns, double& value) {
    if (!text::kEightColumnsWork)
        return false;
    std::uint64_t field = wordAt(columns);
    if (field == kBlankField) {
        value = 0.0;
        return true;
    }
    // A digit becomes its value; the first column is in the lowest byte.
    field = rightJustified(field) ^ text::inEachByte('0');
    int front = std::countr_zero(field ^ text::inEachByte(' ' ^ '0')) / 8;
    const bool isNegative = (field >> 8 * front & 0xFF) == ('-' ^ '0');
    front += isNegative ? 1 : 0;
    if (front == 8)
        return false;
    field &= ~std::uint64_t{0} << 8 * front;
    // The point's byte is the lowest one that becomes zero here.
    const std::uint64_t points = field ^ text::inEachByte('.' ^ '0');
    const std::uint64_t point = (points - text::inEachByte(1)) & ~points & text::inEachByte(0x80);
    int decimals = 0;
    if (point != 0) {
        if (front == 7)
            return false;
        const std::uint64_t throughPoint = point ^ (point - 1);
        field = ((field & (throughPoint >> 8)) << 8) | (field & ~throughPoint);
        decimals = 7 - std::countr_zero(point) / 8;
    }
    if (!text::areDigits(field))
        return false;
    const double number = text::numberOf(field) / text::kPowersOfTen[decimals];
    value = isNegative ? -number : number;
    return true;
}

/// Reads the first two numbers of a card whose rule is known at a glance. False where the
/// normalised text must be read.
inline bool readFixedOids(std::string_view line, int& first, int& second) {
    return line.size() >= 3 * kFieldWidth && readField(line.data() + kFieldWidth, first) &&
           readField(line.data() + 2 * kFieldWidth, second);
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
        if (!readField(columns, value) || value == 0 ||
            columns[std::countr_zero(wordAt(columns) ^ kBlankField) / 8] == '0')
            return false;
        numbers.ints[i] = value;
    }
    const char* next = card.data() + kCardColumns;
    const char* const last = card.data() + card.size();
    std::size_t column = 0;
    for (; next != last; ++next) {
        if (*next == ',' || *next == '+')
            column += kFieldWidth;
        else if (*next == ' ')
            ++column;
        else if (*next != '\n')
            break;
    }
    if (next == last || column < kFieldWidth || *next == '0' || !text::isDigit(*next))
        return false;
    int value = 0;
    for (std::size_t room = kFieldWidth - column % kFieldWidth; room > 0; --room, ++next) {
        if (next == last || !text::isDigit(*next))
            break;
        value = 10 * value + static_cast<int>(text::digitValue(*next));
    }
    if (next != last && *next == '\n' && next + 1 != last)
        return false;  // the digits may go on behind it
    numbers.ints[kOnFirstLine] = 0;
    numbers.ints[kOnFirstLine + 1] = value;
    return true;
}

/// Reads the numbers of a card whose rule is known at a glance. False where the normalised text
/// must be read; no harm is done then to numbers that are not read again anyway.
inline bool readFixedFields(std::string_view card, const CardRule& rule, CardNumbers& numbers) {
    if (rule.hasFiller)
        return readFixedHexa(card, numbers);
    if (rule.floats > 0)  // property cards are few
        return false;
    const std::size_t needed = (1 + rule.ints + rule.doubles) * kFieldWidth;
    std::array<char, kCardColumns> padded;
    const char* columns = card.data();
    if (card.size() <= needed) {
        if (!card.ends_with('\n'))
            return false;
        padded.fill(' ');
        card.copy(padded.data(), card.size() - 1);
        columns = padded.data();
    }
    for (std::size_t i = 0; i < rule.ints; ++i)
        if (!readField(columns += kFieldWidth, numbers.ints[i]))
            return false;
    for (std::size_t i = 0; i < rule.doubles; ++i)
        if (!readField(columns += kFieldWidth, numbers.doubles[i]))
            return false;
    return true;
}

}  // namespace kvocaeio::nastran
