/// Opens the deck, runs both passes and sizes the tables between them.
#include "nastran/import.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string_view>
#include <utility>

#include "nastran/passes.h"
#include "nastran/section_table.h"
#include "text/file.h"

namespace kvocaeio::nastran {

namespace {

DeckTables readDeck(std::FILE* deck, const DeckExtent& extent, FastWay fastWay,
                    const text::Listener& listener) {
    DeckTables tables;
    tables.extent = extent;
    tables.nodes = text::makeZeroed<float>(text::asSize(extent.maxNodeId), kNodeWidth);
    tables.elements = text::makeZeroed<int>(text::asSize(extent.maxElemId), kElemWidth);
    std::vector<SectionRow> sections;
    readCards(deck, tables, sections, fastWay, listener);
    makeSectionTable(sections, tables);
    return tables;
}

}  // namespace

bool importDeck(const char* path, NastranFileInfo& info, const text::Listener& listener,
                FastWay fastWay) {
    info.extent = {};
    const text::File deck = text::openFile(path, "rb");
    if (deck == nullptr)
        return false;
    info.path[std::string_view(path).copy(info.path, sizeof info.path - 1)] = '\0';
    try {
        const DeckExtent extent = scanIdentifiers(deck.get(), fastWay, listener.withoutFindings());
        if (!listener.hasStopped()) {
            info.extent = extent;
            if (std::min({extent.maxNodeId, extent.maxElemId, extent.maxPropId}) < 1)
                return false;
            std::rewind(deck.get());
            DeckTables tables = readDeck(deck.get(), extent, fastWay, listener);
            if (!listener.hasStopped()) {
                info.decks.push_back(std::move(tables));
                return true;
            }
        }
    } catch (const std::exception&) {  // memory ran out
    }
    info.extent = {};
    return false;
}

}  // namespace kvocaeio::nastran
