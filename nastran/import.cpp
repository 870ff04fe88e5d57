/// Opens the deck, runs both passes and sizes the tables between them.
#include "nastran/import.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string_view>
#include <utility>

#include "nastran/card.h"
#include "nastran/lines.h"
#include "nastran/tables.h"
#include "text/ascii.h"
#include "text/listened_file.h"

namespace kvocaeio::nastran {

namespace {

// Whether a line without a known name is a card all the same, and no continuation or blank line.
bool beginsWithLetter(std::string_view line) {
    const char letter = line.empty() ? ' ' : text::toUpper(line[0]);
    return letter >= 'A' && letter <= 'Z';
}

// Finds the largest OIDs; a deck without properties has property 1.
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
            raiseExtent(*rule, first, second, extent);
            continue;
        }
        normalised.normalise(card.raw, LineFeeds::kKeep);
        raiseExtent(normalised.view(), extent);
    }
    if (extent.maxPropId == 0)
        extent.maxPropId = 1;
    return extent;
}

DeckTables readCards(std::FILE* deck, const DeckExtent& extent, FastWay fastWay,
                     const text::Listener& listener) {
    DeckTables tables;
    tables.extent = extent;
    tables.nodes = text::makeZeroed<float>(text::asSize(extent.maxNodeId), kNodeWidth);
    tables.elements = text::makeZeroed<int>(text::asSize(extent.maxElemId), kElemWidth);
    std::vector<SectionRow> sections;
    CardLines lines(deck, Continuations::kMerged, fastWay, listener);
    CardReader reader;
    while (lines.next()) {
        const ReadCard card = reader.read(lines.card());
        if (card.rule != nullptr)
            storeCard(*card.rule, reader.numbers(), tables, sections);
        else if (beginsWithLetter(lines.card().raw))
            lines.note(Finding::kCardUnknown);
        if (!card.isComplete) [[unlikely]]
            lines.note(Finding::kFieldStale);
    }
    makeSectionTable(sections, tables);
    return tables;
}

}  // namespace

bool importDeck(const char* path, NastranFileInfo& info, const text::Listener& listener,
                FastWay fastWay) {
    info.extent = {};
    const text::File deck = text::openFile(path, "rb", listener);
    if (deck == nullptr)
        return false;
    info.path[std::string_view(path).copy(info.path, sizeof info.path - 1)] = '\0';
    try {
        const DeckExtent extent = scanIdentifiers(deck.get(), fastWay, listener.withoutFindings());
        if (!listener.hasStopped()) {
            info.extent = extent;
            if (std::min({extent.maxNodeId, extent.maxElemId, extent.maxPropId}) < 1)
                return false;
            if (!text::rewindFile(deck.get(), listener))
                return false;
            DeckTables tables = readCards(deck.get(), extent, fastWay, listener);
            if (!listener.hasStopped()) {
                info.decks.push_back(std::move(tables));
                return true;
            }
        }
    } catch (const std::exception&) {
        listener.note(text::FileFinding::kOutOfMemory, {});
    }
    info.extent = {};
    return false;
}

}  // namespace kvocaeio::nastran
