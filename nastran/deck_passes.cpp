/// Lines, continuation lines, and what each card leaves in the tables.
#include "nastran/deck_passes.h"

#include <algorithm>
#include <climits>
#include <string>
#include <string_view>

#include "nastran/card_parser.h"
#include "nastran/card_text.h"
#include "text/line_reader.h"
#include "text/scan.h"

namespace kvocaeio {

namespace {

// Lines arrive in pieces of at most 254 characters.
constexpr std::size_t kLineBound = 255;

struct CardFamilies {
    bool grid = false;
    bool element = false;
};

CardFamilies familiesIn(std::string_view text) {
    return {text.find("GRID") != std::string_view::npos, holdsAny(text, kElementNames)};
}

void raise(int& largest, int oid) {
    largest = std::max(largest, oid);
}

// Reads the OIDs off a line in plain fixed fields; false when it is not of that kind.
bool raiseFromFixedFields(std::string_view line, std::string_view names, DeckExtent& extent) {
    constexpr std::size_t kFields = 3 * kFieldWidth;
    const CardRule* const rule = ruleOfFirstField(line);
    int first = 0;
    int second = 0;
    if (rule == nullptr || names.size() > kFields || line.size() <= kFields ||
        !readFixedField(line.substr(kFieldWidth, kFieldWidth), first) ||
        !readFixedField(line.substr(2 * kFieldWidth, kFieldWidth), second))
        return false;
    if (rule->code == CardCode::kGrid) {
        raise(extent.maxNodeId, first);
    } else if (rule->code < CardCode::kBarSection) {
        raise(extent.maxElemId, first);
        raise(extent.maxPropId, second);
    }
    return true;
}

void raiseFromText(std::string_view text, const CardFamilies& families, DeckExtent& extent) {
    std::string_view name;
    int first = 0;
    int second = 0;
    text::Scan scan(text);
    const bool hasFirst = scan.word(name) && scan.integer(first);
    const bool hasSecond = hasFirst && scan.integer(second);
    if (families.grid && hasFirst)
        raise(extent.maxNodeId, first);
    if (families.element && hasFirst)
        raise(extent.maxElemId, first);
    if (families.element && hasSecond)
        raise(extent.maxPropId, second);
}

// The float's truncation as the processor gives it: what has no int becomes the least one.
int truncate(float value) {
    const bool fits = value >= static_cast<float>(INT_MIN) && value < -static_cast<float>(INT_MIN);
    return fits ? static_cast<int>(value) : INT_MIN;
}

void storeNode(const CardNumbers& numbers, DeckTables& tables) {
    const int oid = numbers.ints[0];
    if (oid < 1 || oid > tables.extent.maxNodeId)
        return;
    float* row = tables.nodes + (static_cast<std::size_t>(oid) - 1) * kNodeWidth;
    *row++ = static_cast<float>(oid);
    for (const double coordinate : numbers.doubles)
        *row++ = static_cast<float>(coordinate);
}

void storeElement(const CardNumbers& numbers, std::size_t nodes, DeckTables& tables) {
    const int oid = numbers.ints[0];
    if (oid < 1 || oid > tables.extent.maxElemId)
        return;
    int* row = tables.elements + (static_cast<std::size_t>(oid) - 1) * kElemWidth;
    *row++ = oid;
    const int* const first = &numbers.ints[2];
    int* const behind = std::copy_n(first, nodes, row);
    std::fill(behind, row + kElemWidth - 1, first[nodes - 1]);
}

void storeSection(const CardNumbers& numbers, DeckTables& tables) {
    tables.sections.push_back({numbers.ints[0], numbers.ints[1], truncate(numbers.floats[0])});
    tables.sectionCount = numbers.ints[0];
}

void store(CardCode code, const CardNumbers& numbers, DeckTables& tables) {
    switch (code) {
        case CardCode::kNone:
            break;
        case CardCode::kGrid:
            storeNode(numbers, tables);
            break;
        case CardCode::kBar:
            storeElement(numbers, 2, tables);
            break;
        case CardCode::kTetra:
            storeElement(numbers, 4, tables);
            break;
        case CardCode::kPenta:
            storeElement(numbers, 6, tables);
            break;
        case CardCode::kHexa:
            storeElement(numbers, 8, tables);
            break;
        case CardCode::kBarSection:
        case CardCode::kShellSection:
        case CardCode::kSolidSection:
            storeSection(numbers, tables);
            break;
    }
}

// Puts a continuation line behind the card. A comma takes the place of its marker: of all up to the
// first comma, or of nine characters where the first eight hold none. A line that is shorter stays.
void appendContinuation(std::string_view line, std::string& card) {
    const std::size_t comma = line.substr(0, kFieldWidth).find(',');
    if (comma == std::string_view::npos && line.size() < kFieldWidth) {
        card += line;
        return;
    }
    const std::size_t marker = std::min(comma, kFieldWidth);
    card += ',';
    card += line.substr(std::min(marker + 1, line.size()));
}

}  // namespace

DeckExtent scanIdentifiers(std::FILE* deck) {
    DeckExtent extent;
    CardText text;
    text::LineReader lines(deck, kLineBound, text::LineMode::kText);
    while (lines.next()) {
        const std::string_view line = lines.line();
        const std::string_view names = namePart(line);
        if (names.empty() || line.starts_with('$') || raiseFromFixedFields(line, names, extent))
            continue;
        const CardFamilies families = familiesIn(names);
        if (!families.grid && !families.element && !becomesTube(names))
            continue;
        text.normalise(line, LineFeeds::kKeep);
        raiseFromText(text.view(), familiesIn(text.view()), extent);
    }
    if (extent.maxPropId == 0)
        extent.maxPropId = 1;
    return extent;
}

void readCards(std::FILE* deck, DeckTables& tables) {
    text::LineReader lines(deck, kLineBound, text::LineMode::kText);
    CardParser parser;
    std::string card;
    while (lines.next()) {
        CardCode code;
        if (holdsAny(namePart(lines.line()), kContinuedNames)) {
            card = lines.line();
            lines.next();  // at the end of the deck the line is its own continuation
            if (!lines.line().empty())
                appendContinuation(lines.line(), card);
            code = parser.parse(card, true);
        } else {
            code = parser.parse(lines.line(), false);
        }
        store(code, parser.numbers(), tables);
    }
}

}  // namespace kvocaeio
