/// Cards in plain fixed fields are read where they stand; all others go through the normalised
/// text.
#include "nastran/card_parser.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "text/scan.h"
#include "text/tokens.h"

namespace kvocaeio {

namespace {

// A minus sign, digits, a point: what a normalisation leaves as it is and one scan takes whole.
bool isPlainReal(std::string_view field) {
    if (field.starts_with('-'))
        field.remove_prefix(1);
    int digits = 0;
    int points = 0;
    for (const char c : field) {
        if (text::isDigit(c))
            ++digits;
        else if (c == '.')
            ++points;
        else
            return false;
    }
    return digits > 0 && points <= 1;
}

bool readFixedField(std::string_view field, double& value) {
    field = text::trimBlanks(field);
    if (field.empty()) {
        value = 0.0;
        return true;
    }
    return isPlainReal(field) && text::Scan(field).real(value);
}

bool readFixedField(std::string_view field, float& value) {
    field = text::trimBlanks(field);
    if (field.empty()) {
        value = 0.0F;
        return true;
    }
    return isPlainReal(field) && text::Scan(field).real(value);
}

// Written without an early exit, for vector instructions.
bool holdsCapital(std::string_view text) {
    unsigned char found = 0;
    for (const char c : text) {
        const auto letter = static_cast<unsigned char>(c - 'A');
        found |= static_cast<unsigned char>(letter < 26 ? 1 : 0);
    }
    return found != 0;
}

const CardRule* ruleInText(std::string_view text) {
    for (const CardRule& rule : kCardRules)
        if (text.find(rule.name) != std::string_view::npos)
            return &rule;
    return nullptr;
}

}  // namespace

const CardRule* ruleOfFirstField(std::string_view card) {
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
    if (card.size() < kFieldWidth)
        return nullptr;
    std::uint64_t key;
    std::memcpy(&key, card.data(), sizeof key);
    for (std::size_t i = 0; i < kKeys.size(); ++i)
        if (kKeys[i] == key)
            return &kCardRules[i];
    return nullptr;
}

std::string_view namePart(std::string_view text) {
    constexpr std::size_t kFront = 2 * kFieldWidth;
    const std::string_view front = text.substr(0, kFront);
    if (holdsCapital(text.substr(front.size())))
        return text;
    // One more character: a name can end in a digit.
    return holdsCapital(front) ? text.substr(0, kFront + 1) : std::string_view();
}

bool becomesTube(std::string_view text) {
    return text.find("TUB-") != std::string_view::npos;
}

bool readFixedField(std::string_view field, int& value) {
    constexpr std::size_t kDigitsThatFit = 9;
    field = text::trimBlanks(field);
    if (field.size() > kDigitsThatFit || !std::ranges::all_of(field, text::isDigit))
        return false;
    value = 0;
    for (const char c : field)
        value = 10 * value + (c - '0');
    return true;
}

CardCode CardParser::parse(std::string_view card, bool merged) {
    if (card.starts_with('$'))
        return CardCode::kNone;
    const CardRule* const rule = ruleOfFirstField(card);
    if (merged)
        return rule != nullptr && rule->code == CardCode::kHexa && readFixedHexa(card)
                   ? rule->code
                   : parseText(card);
    if (rule != nullptr && readFixedFields(card, *rule)) {
        computePropertyValue(rule->value);
        return rule->code;
    }
    if (rule == nullptr) {
        const std::string_view names = namePart(card);
        if (ruleInText(names) == nullptr && !becomesTube(names))
            return CardCode::kNone;
    }
    return parseText(card);
}

// The plain way, which takes every card.
CardCode CardParser::parseText(std::string_view card) {
    text_.normalise(card, LineFeeds::kPad);
    const CardRule* const rule = ruleInText(text_.view());
    if (rule == nullptr)
        return CardCode::kNone;
    if (rule->code == CardCode::kHexa)
        text_.clearHexFiller();
    readText(*rule);
    computePropertyValue(rule->value);
    return rule->code;
}

// Reads the numbers of a line that the normalisation would only fill up. False, without harm done
// to numbers that are read again anyway, when the line is not of that kind.
bool CardParser::readFixedFields(std::string_view card, const CardRule& rule) {
    if (!card.ends_with('\n'))
        return false;
    card.remove_suffix(1);
    const std::string_view fields = card.substr(std::min(kFieldWidth, card.size()));
    if (card.size() > kCardColumns || holdsCapital(fields))
        return false;
    CardNumbers read;
    std::size_t column = 0;
    const auto nextField = [&] {
        column = std::min(column + kFieldWidth, card.size());
        return card.substr(column, kFieldWidth);
    };
    for (int i = 0; i < rule.ints; ++i)
        if (!readFixedField(nextField(), read.ints[static_cast<std::size_t>(i)]))
            return false;
    for (int i = 0; i < rule.doubles; ++i)
        if (!readFixedField(nextField(), read.doubles[static_cast<std::size_t>(i)]))
            return false;
    for (int i = 0; i < rule.floats; ++i)
        if (!readFixedField(nextField(), read.floats[static_cast<std::size_t>(i)]))
            return false;
    std::copy_n(read.ints.begin(), rule.ints, numbers_.ints.begin());
    std::copy_n(read.doubles.begin(), rule.doubles, numbers_.doubles.begin());
    std::copy_n(read.floats.begin(), rule.floats, numbers_.floats.begin());
    return true;
}

// Reads a `CHEXA` of two lines whose first one has plain numbers in all its fields: of its text
// only what stands behind these needs the normalisation.
bool CardParser::readFixedHexa(std::string_view card) {
    constexpr std::size_t kOnFirstLine = 8;
    constexpr std::size_t kOnSecondLine = 2;
    const std::string_view front = card.substr(0, kCardColumns);
    const std::string_view back = card.substr(front.size());
    if (front.size() < kCardColumns || holdsCapital(front.substr(kFieldWidth)) ||
        holdsCapital(back))
        return false;
    std::array<int, kOnFirstLine> read;
    for (std::size_t i = 0; i < kOnFirstLine; ++i) {
        const std::string_view field =
            text::trimBlanks(front.substr((i + 1) * kFieldWidth, kFieldWidth));
        // A zero in front would be the one that is kept of the fillers.
        if (field.empty() || field[0] == '0' || !readFixedField(field, read[i]))
            return false;
    }
    text_.normalise(back, LineFeeds::kDrop);
    text_.clearHexFiller(' ');
    std::ranges::copy(read, numbers_.ints.begin());
    text::Scan scan(text_.view());
    for (std::size_t i = 0; i < kOnSecondLine; ++i)
        if (!scan.integer(numbers_.ints[kOnFirstLine + i]))
            break;
    return true;
}

// "%s%d%d...": stops at the first number that cannot be read.
void CardParser::readText(const CardRule& rule) {
    text::Scan scan(text_.view());
    std::string_view name;
    bool goesOn = scan.word(name);
    for (int i = 0; goesOn && i < rule.ints; ++i)
        goesOn = scan.integer(numbers_.ints[static_cast<std::size_t>(i)]);
    for (int i = 0; goesOn && i < rule.doubles; ++i)
        goesOn = scan.real(numbers_.doubles[static_cast<std::size_t>(i)]);
    for (int i = 0; goesOn && i < rule.floats; ++i)
        goesOn = scan.real(numbers_.floats[static_cast<std::size_t>(i)]);
}

void CardParser::computePropertyValue(PropertyValue value) {
    float& first = numbers_.floats[0];
    switch (value) {
        case PropertyValue::kTwice:
            first = static_cast<float>(static_cast<double>(first) * 2.0);
            break;
        case PropertyValue::kDiameter:
            first = static_cast<float>(2.0 * std::sqrt(static_cast<double>(first) / 3.14159));
            break;
        case PropertyValue::kNone:
        case PropertyValue::kAsRead:
            break;
    }
}

}  // namespace kvocaeio
