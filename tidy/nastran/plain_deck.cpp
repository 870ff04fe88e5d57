/// Plain cards in their columns, and lines that the reader passes over.
#include "tidy/nastran/plain_deck.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>

#include "text/ascii.h"
#include "text/eight_columns.h"
#include "text/scan.h"
#include "text/tokens.h"
#include "tidy/nastran/card_table.h"
#include "tidy/nastran/fields.h"
#include "tidy/nastran/numbers.h"

namespace kvocaeio::tidy::nastran {

namespace {

constexpr std::size_t kColumns = 8;

// What the reader finds anywhere in a line, and the one that it makes of two: it puts an "E" before
// a minus sign.
constexpr std::array<std::string_view, 19> kReaderNames{
    "GRID", "CROD",  "CTUBE",  "CBAR",   "CBEAM",  "CTETRA", "CPENTA", "CHEXA",  "PROD", "PTUBE",
    "PBAR", "PBEAM", "PSHELL", "PSHEAR", "PSOLID", "CQUAD",  "CTRIA",  "CSHEAR", "TUB-"};

// What a look at all characters of a line tells.
struct LineBits {
    bool hasLetters = false;        // or other characters from "@" on
    bool hasLettersBehind = false;  // behind the first field
    bool hasControls = false;       // characters before the blank
};

LineBits lookAt(std::string_view line) {
    std::uint64_t first = text::inEachByte(' ');
    std::memcpy(&first, line.data(), std::min(line.size(), kColumns));
    std::uint64_t letters = 0;
    std::uint64_t controls = (first - text::inEachByte(0x20)) & ~first;
    for (std::size_t at = kColumns; at < line.size(); at += kColumns) {
        std::uint64_t word = 0;
        std::memcpy(&word, line.data() + std::min(at, line.size() - kColumns), kColumns);
        letters |= word;
        controls |= (word - text::inEachByte(0x20)) & ~word;
    }
    return {((letters | first) & text::inEachByte(0x40)) != 0,
            (letters & text::inEachByte(0x40)) != 0, (controls & text::inEachByte(0x80)) != 0};
}

// Whether a letter stands in the text with which a name of the reader or a statement begins, in any
// case.
bool canHoldName(std::string_view line) {
    static constexpr text::Delimiters kFirstLetters("CGPTIcgpi");
    return std::ranges::any_of(line, [](char c) { return kFirstLetters.contains(c); });
}

bool holdsReaderName(std::string_view line) {
    return std::ranges::any_of(kReaderNames, [&](std::string_view name) {
        return line.find(name) != std::string_view::npos;
    });
}

// The longest piece of a line that the reader takes at once.
constexpr std::size_t kPiece = 250;

// A comment is one for the reader, too, unless it takes the next line along.
bool isPlainComment(std::string_view line) {
    if (line.size() > kPiece && holdsReaderName(line))
        return false;
    return line.find("CHEXA") == std::string_view::npos &&
           line.find("CQUAD8") == std::string_view::npos;
}

// A line that is no card of the reader is passed over if it is none in any other form, either.
bool isPassedOver(std::string_view line) {
    if (!line.empty() && line[0] == '=')
        return false;  // replication
    if (!canHoldName(line))
        return true;
    if (holdsReaderName(line))
        return false;
    std::string name;
    for (const char c : trimmed(line)) {
        if (c == '*' || c == ',' || text::isSpace(c) || c == '\'' || c == '"')
            break;
        name += text::toUpper(c);
    }
    if (name == "INCLUDE" || name.starts_with("INCLUDE="))
        return false;
    const CardRule* const rule = findCardRule(name);
    return rule == nullptr || rule->kind == CardKind::kUnread;
}

bool isStatement(std::string_view line, std::string_view word) {
    line = trimmed(line);
    return line.size() >= word.size() &&
           std::ranges::equal(line.substr(0, word.size()), word, {}, text::toUpper);
}

std::string_view columns(std::string_view line, std::size_t field) {
    const std::size_t at = std::min(field * kColumns, line.size());
    return line.substr(at, kColumns);
}

// An integer above 0 in a field.
bool takeInteger(std::string_view line, std::size_t field, int& number) {
    if (line.size() >= (field + 1) * kColumns &&
        text::readEightColumns(line.data() + field * kColumns, number))
        return number > 0;
    const std::string_view text = text::trimBlanks(columns(line, field));
    if (!isPlainInteger(text))
        return false;
    text::Scan(text).integer(number);
    return number > 0;
}

// Whether eight columns are blanks and then digits that make a number above 0; others may, too.
bool isSurelyPositive(const char* columns) {
    std::uint64_t digits = 0;
    std::memcpy(&digits, columns, kColumns);
    digits ^= text::inEachByte('0');  // a digit becomes its value, a blank 0x10
    const std::uint64_t blankBits = digits & text::inEachByte(0x10);
    const std::uint64_t blanks = (blankBits >> 4) * 0xFF;
    digits ^= blankBits;
    return text::kEightColumnsWork &&
           ((digits + text::inEachByte(6)) & text::inEachByte(0xF0)) == 0 &&
           (blanks & (blanks + 1)) == 0 && (digits & blanks) == 0 && digits != 0;
}

bool areIntegers(std::string_view line, std::size_t first, std::size_t count) {
    if (line.size() >= (first + count) * kColumns) {
        bool areSure = true;
        for (std::size_t field = first; field < first + count; ++field)
            areSure = isSurelyPositive(line.data() + field * kColumns) && areSure;
        if (areSure)
            return true;
    }
    for (std::size_t field = first; field < first + count; ++field)
        if (int number = 0; !takeInteger(line, field, number))
            return false;
    return true;
}

bool isReal(std::string_view line, std::size_t field) {
    const std::string_view text = text::trimBlanks(columns(line, field));
    return text.empty() || isPlainReal(text);
}

bool isBlankOrInteger(std::string_view line, std::size_t field) {
    if (areIntegers(line, field, 1))
        return true;
    const std::string_view text = text::trimBlanks(columns(line, field));
    return text.empty() || isPlainInteger(text);
}

struct PlainName {
    std::array<char, kColumns> columns;
    std::size_t row;
};

// The names that fill the first field of a plain card.
constexpr auto kPlainNames = [] {
    constexpr std::array<std::string_view, 17> kNames{
        "GRID",   "CTETRA", "CHEXA",  "CPENTA", "CBAR",   "CROD", "CTUBE", "CBEAM", "CQUAD4",
        "CTRIA3", "CSHEAR", "PSOLID", "PSHELL", "PSHEAR", "PBAR", "PROD",  "PTUBE"};
    std::array<PlainName, kNames.size() + 1> names{};
    const auto put = [&](std::size_t at, std::string_view name) {
        names[at].columns.fill(' ');
        std::ranges::copy(name, names[at].columns.begin());
        for (std::size_t row = 0; row < kCardRules.size(); ++row)
            if (kCardRules[row].name == name)
                names[at].row = row;
    };
    for (std::size_t i = 0; i < kNames.size(); ++i)
        put(i, kNames[i]);
    put(kNames.size(), "PBEAM");
    return names;
}();

const CardRule* plainRule(std::string_view line) {
    if (line.size() < kColumns || line[0] < 'C')
        return nullptr;
    for (const PlainName& name : kPlainNames)
        if (std::memcmp(name.columns.data(), line.data(), kColumns) == 0)
            return &kCardRules[name.row];
    return nullptr;
}

}  // namespace

bool PlainDeck::take(std::string_view line) {
    thing_ = Thing::kNone;
    const LineBits bits = lookAt(line);
    // A byte that ends the file for the reader.
    if (bits.hasControls && line.find('\x1A') != std::string_view::npos)
        return false;
    if (isInHexa_)
        return takeHexaEnd(line);
    if (!line.empty() && line[0] == '$')
        return isPlainComment(line);
    rule_ = bits.hasLetters ? plainRule(line) : nullptr;
    if (rule_ == nullptr)
        return bits.hasLetters ? takeOther(line) : line.empty() || line[0] != '=';
    if (isEnded_)
        return false;
    const std::string_view rest = line.substr(kColumns);
    if (bits.hasLettersBehind && canHoldName(rest) && holdsReaderName(rest))
        return false;
    switch (rule_->kind) {
        case CardKind::kGrid:
            return takeGrid(line);
        case CardKind::kElement:
            return rule_->corners == 8 ? takeHexa(line) : takeElement(line, rule_->corners);
        case CardKind::kShell:
            return takeShell(line);
        case CardKind::kProperty:
            return takeProperty(line);
        default:
            return false;
    }
}

// The reader passes over the statements between which the cards stand, and reads all cards.
bool PlainDeck::takeOther(std::string_view line) {
    isEnded_ = isEnded_ || isStatement(line, "ENDDATA");
    if (nodes_ + elements_ > 0 || properties_ > 0)
        if (isStatement(line, "BEGIN"))
            return false;
    return isPassedOver(line);
}

bool PlainDeck::takeGrid(std::string_view line) {
    thing_ = Thing::kNode;
    ++nodes_;
    const std::string_view frame = text::trimBlanks(columns(line, 2));
    return takeInteger(line, 1, number_) && (frame.empty() || frame == "0") && isReal(line, 3) &&
           isReal(line, 4) && isReal(line, 5);
}

bool PlainDeck::takeElement(std::string_view line, std::size_t corners) {
    thing_ = Thing::kElement;
    ++elements_;
    return takeInteger(line, 1, number_) && isBlankOrInteger(line, 2) &&
           areIntegers(line, 3, corners);
}

// In the form that this library writes.
bool PlainDeck::takeHexa(std::string_view line) {
    constexpr std::size_t kOnFirstLine = 6;
    const bool hasZero = columns(line, 1).starts_with('0') || columns(line, 2).starts_with('0');
    isInHexa_ = true;
    return hasZero && line.size() == (3 + kOnFirstLine) * kColumns && areIntegers(line, 2, 1) &&
           takeElement(line, kOnFirstLine);
}

bool PlainDeck::takeHexaEnd(std::string_view line) {
    isInHexa_ = false;
    if (line.starts_with("+       ") && line.size() == 3 * kColumns)
        return areIntegers(line, 1, 2) && line[kColumns] == ' ' && line[2 * kColumns] == ' ';
    constexpr std::size_t kMark = 2;  // "+,", the seventh node, a comma, and the eighth
    if (!line.starts_with("+,") || line.size() != kMark + 2 * kColumns + 1)
        return false;
    line.remove_prefix(kMark);
    return areIntegers(line, 0, 1) && line[kColumns] == ',' && areIntegers(line.substr(1), 1, 1);
}

bool PlainDeck::takeShell(std::string_view line) {
    thing_ = Thing::kShell;
    ++elements_;
    return takeInteger(line, 1, number_);
}

bool PlainDeck::takeProperty(std::string_view line) {
    thing_ = Thing::kProperty;
    ++properties_;
    return takeInteger(line, 1, number_) && number_ == properties_ && isBlankOrInteger(line, 2) &&
           isReal(line, 3);
}

}  // namespace kvocaeio::tidy::nastran
