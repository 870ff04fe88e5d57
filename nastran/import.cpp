/// Opens the deck, runs both passes and sizes the tables between them.
#include "nastran/import.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string_view>
#include <utility>

#include "nastran/card.h"
#include "nastran/card_notes.h"
#include "nastran/lines.h"
#include "nastran/tables.h"
#include "text/listened_file.h"

namespace kvocaeio::nastran {

namespace {

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
    CardNotes notes(lines, reader, tables);
    while (lines.next()) {
        const ReadCard card = reader.read(lines.card());
        if (lines.areNoted()) [[unlikely]]
            notes.hear(card);
        if (card.rule != nullptr)
            storeCard(*card.rule, reader.numbers(), tables, sections);
    }
    makeSectionTable(sections, tables);
    if (lines.areNoted()) [[unlikely]]
        notes.finish(sections);
    return tables;
}

// Why a deck has no tables: what its cards are read as, if somebody wants to know.
void explainNoTables(std::FILE* deck, const DeckExtent& extent, FastWay fastWay,
                     const text::Listener& listener) {
    if (listener.findings == nullptr)
        return;
    try {
        if (text::rewindFile(deck, listener))
            static_cast<void>(readCards(deck, extent, fastWay, listener));
    } catch (const std::exception&) {
        listener.note(text::FileFinding::kReportIncomplete, {});
    }
    if (extent.maxElemId < 1)
        listener.note(Finding::kNoElements, {});
    if (extent.maxNodeId < 1)
        listener.note(Finding::kNoNodes, {});
}

}  // namespace

bool importDeck(const char* path, NastranFileInfo& info, const text::Listener& listener,
                FastWay fastWay) {
    info.extent = {};
    const text::File deck = text::openFile(path, "rb", listener);
    if (deck == nullptr)
        return false;
    info.path[std::string_view(path).copy(info.path, sizeof info.path - 1)] = '\0';
    return importOpenDeck(deck.get(), info, listener, fastWay);
}

bool importOpenDeck(std::FILE* deck, NastranFileInfo& info, const text::Listener& listener,
                    FastWay fastWay) {
    info.extent = {};
    try {
        const DeckExtent extent = scanIdentifiers(deck, fastWay, listener.withoutFindings());
        if (!listener.hasStopped()) {
            info.extent = extent;
            if (std::min({extent.maxNodeId, extent.maxElemId, extent.maxPropId}) < 1) {
                explainNoTables(deck, extent, fastWay, listener);
                return false;
            }
            if (!text::rewindFile(deck, listener))
                return false;
            DeckTables tables = readCards(deck, extent, fastWay, listener);
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
