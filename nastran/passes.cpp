/// What each card leaves in the extent and in the tables.
#include "nastran/passes.h"

#include <algorithm>
#include <climits>
#include <string_view>

#include "nastran/card.h"
#include "nastran/card_text.h"
#include "nastran/lines.h"
#include "text/ascii.h"
#include "text/scan.h"

namespace kvocaeio::nastran {

namespace {

// What a card that was recognised by a rule counts for.
void raise(const CardRule& rule, int first, int second, DeckExtent& extent) {
    if (rule.code == CardCode::kGrid) {
        extent.maxNodeId = std::max(extent.maxNodeId, first);
    } else if (rule.isElement) {
        extent.maxElemId = std::max(extent.maxElemId, first);
        extent.maxPropId = std::max(extent.maxPropId, second);
    }
}

// A text counts for every name that it holds.
void raiseFromText(std::string_view normalised, DeckExtent& extent) {
    std::string_view name;
    int first = 0;
    int second = 0;
    text::Scan scan(normalised);
    if (!scan.word(name) || !scan.integer(first))
        return;
    scan.integer(second);
    for (const CardRule& rule : kCardRules)
        if (holds(normalised, rule.name))
            raise(rule, first, second, extent);
}

// The float's truncation as the processor gives it: what has no int becomes the least one.
int truncate(float value) {
    const bool fits = value >= static_cast<float>(INT_MIN) && value < -static_cast<float>(INT_MIN);
    return fits ? static_cast<int>(value) : INT_MIN;
}

// The row of an OID, or null where there is none.
template <class Number>
Number* rowOf(int oid, int rows, std::size_t width, const text::ZeroedArray<Number>& table) {
    return oid < 1 || oid > rows ? nullptr
                                 : table.get() + (static_cast<std::size_t>(oid) - 1) * width;
}

void storeNode(const CardNumbers& numbers, DeckTables& tables) {
    const int oid = numbers.ints[0];
    float* row = rowOf(oid, tables.extent.maxNodeId, kNodeWidth, tables.nodes);
    if (row == nullptr)
        return;
    *row++ = static_cast<float>(oid);
    for (const double coordinate : numbers.doubles)
        *row++ = static_cast<float>(coordinate);
}

void storeElement(const CardNumbers& numbers, std::size_t nodes, DeckTables& tables) {
    const int oid = numbers.ints[0];
    int* const row = rowOf(oid, tables.extent.maxElemId, kElemWidth, tables.elements);
    if (row == nullptr)
        return;
    *row = oid;
    const int* const first = &numbers.ints[2];
    std::fill(std::copy_n(first, nodes, row + 1), row + kElemWidth, first[nodes - 1]);
}

void store(const CardRule& rule, const CardNumbers& numbers, DeckTables& tables,
           std::vector<SectionRow>& sections) {
    if (rule.code == CardCode::kGrid)
        storeNode(numbers, tables);
    else if (rule.nodes > 0)
        storeElement(numbers, rule.nodes, tables);
    else if (!rule.isElement)
        sections.push_back({numbers.ints[0], numbers.ints[1], truncate(numbers.floats[0])});
}

// Whether a line without a known name is a card all the same, and no continuation or blank line.
bool beginsWithLetter(std::string_view line) {
    const char letter = line.empty() ? ' ' : text::toUpper(line[0]);
    return letter >= 'A' && letter <= 'Z';
}

}  // namespace

DeckExtent scanIdentifiers(std::FILE* deck, FastWay fastWay, const text::Listener& listener) {
    DeckExtent extent;
    CardText normalised;
    CardLines lines(deck, Continuations::kApart, fastWay, listener);
    while (lines.next()) {
        const Card& card = lines.card();
        if (card.glance.isNameless || card.isComment())
            continue;
        const CardRule* const rule = card.glance.rule;
        int first = 0;
        int second = 0;
        if (rule != nullptr && readFixedOids(card.raw, first, second)) {
            raise(*rule, first, second, extent);
            continue;
        }
        normalised.normalise(card.raw, LineFeeds::kKeep);
        raiseFromText(normalised.view(), extent);
    }
    if (extent.maxPropId == 0)
        extent.maxPropId = 1;
    return extent;
}

void readCards(std::FILE* deck, DeckTables& tables, std::vector<SectionRow>& sections,
               FastWay fastWay, const text::Listener& listener) {
    CardLines lines(deck, Continuations::kMerged, fastWay, listener);
    CardReader reader;
    while (lines.next()) {
        const ReadCard card = reader.read(lines.card());
        if (card.rule != nullptr)
            store(*card.rule, reader.numbers(), tables, sections);
        else if (beginsWithLetter(lines.card().raw))
            lines.note(Finding::kCardUnknown);
        if (!card.isComplete) [[unlikely]]
            lines.note(Finding::kFieldStale);
    }
}

}  // namespace kvocaeio::nastran
