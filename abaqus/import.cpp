/// The stations of an import: debug folder, counting pass, tables, storing pass, dump, OID maps.
#include "abaqus/import.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <numeric>
#include <stdexcept>
#include <utility>

#include "abaqus/deck_counts.h"
#include "abaqus/deck_scanner.h"
#include "abaqus/deck_store.h"
#include "abaqus/import_log.h"
#include "abaqus/import_state.h"
#include "text/listened_file.h"

namespace kvocaeio::abaqus {

namespace {

// The host counts in int. A deck beyond that is treated like one that does not fit into memory.
int hostCount(std::size_t count) {
    if (!std::in_range<int>(count))
        throw std::length_error("too many entries");
    return static_cast<int>(count);
}

void printSummary(const DeckCounts& counts) {
    std::fputs("------- Summary ------\n", stdout);
    std::printf("Node Section num = %d\n", hostCount(counts.nodeBlocks.size()));
    for (std::size_t i = 0; i < counts.nodeBlocks.size(); ++i)
        std::printf("  Node Block [%d] = %d\n", static_cast<int>(i),
                    hostCount(counts.nodeBlocks[i]));
    std::printf("Elem Section num = %d\n", hostCount(counts.elementBlocks.size()));
    for (std::size_t i = 0; i < counts.elementBlocks.size(); ++i)
        std::printf("  Elem Block [%d] = %d\n", static_cast<int>(i),
                    hostCount(counts.elementBlocks[i].elements));
    std::printf("Shell Section num = %d\n", hostCount(counts.shellSections));
    std::printf("Surface Section num = %d\n", hostCount(counts.surfaces));
    std::printf("Dload Section num = %d\n", hostCount(counts.dloads));
    std::printf("Elset Section num = %d\n", hostCount(counts.elsets));
}

// What a walk goes by, the ids and the width, changes only once the table behind it has the room,
// so that the walks stay inside the tables wherever memory runs out.
void sizeTables(AbaqusModel& model, const DeckCounts& counts) {
    // Rows of an earlier import may go, so nothing may point at them any longer.
    model.nodeOidMap = {};
    model.elemOidMap = {};
    model.maxNodeOid = model.maxElemOid = 0;

    NodeBlock& block = model.nodeBlock;
    const auto nodes =
        std::accumulate(counts.nodeBlocks.begin(), counts.nodeBlocks.end(), std::size_t{0});
    hostCount(nodes);
    hostCount(counts.elementBlocks.size());
    block.ids.resize(std::min(nodes, block.ids.size()));
    block.coords.resize(3 * nodes);
    block.ids.resize(nodes);

    model.elemSections.resize(counts.elementBlocks.size());
    for (std::size_t i = 0; i < counts.elementBlocks.size(); ++i) {
        const auto [elements, nodesPerElem] = counts.elementBlocks[i];
        ElemSection& section = model.elemSections[i];
        hostCount(elements);
        section.nodesPerElem = 0;
        section.nodes.resize(elements * nodesPerElem);
        section.ids.resize(elements);
        section.nodesPerElem = static_cast<int>(nodesPerElem);
    }
    model.shellSections.resize(counts.shellSections);
    model.surfaces.resize(counts.surfaces);
    model.dloads.resize(counts.dloads);
    model.elsets.resize(counts.elsets);
}

void buildOidMaps(AbaqusModel& model) {
    if (model.nodeBlock.ids.empty() || model.elemSections.empty())
        return;
    assignRows(model.nodeOidMap, model.nodeBlock.ids);
    model.elemOidMap.assign([&](const auto& visit) {
        ElemLocation location;
        for (const ElemSection& section : model.elemSections) {
            for (location.row = 0; location.row < section.ids.size(); ++location.row)
                visit(section.ids[location.row], location);
            ++location.section;
        }
    });
    model.maxNodeOid = static_cast<int>(model.nodeOidMap.size() - 1);
    model.maxElemOid = static_cast<int>(model.elemOidMap.size() - 1);
}

void printPass(int pass, const text::Listener& listener) {
    if (!listener.isQuiet)
        std::printf("============= Loop %d ==============\n", pass);
}

// False where the deck could not be opened, or where the host stops a pass.
bool readDeck(AbaqusModel& model, text::File deck, const DebugFolder& folder,
              const text::Listener& listener) {
    if (deck == nullptr)
        return false;
    printPass(1, listener);
    DeckCounts counts;
    {
        DeckLines lines(deck.get(), listener.withoutFindings());
        scanDeck(lines, counts);
    }
    if (listener.hasStopped())
        return false;
    if (!listener.isQuiet)
        printSummary(counts);
    sizeTables(model, counts);

    printPass(2, listener);
    if (!text::rewindFile(deck.get(), listener))
        return false;
    DeckLines lines(deck.get(), listener);
    DeckStore store(model, lines);
    scanDeck(lines, store);
    if (listener.hasStopped())
        return false;
    deck.reset();
    if (folder.usable)
        writeImportLog(model, folder);
    buildOidMaps(model);
    return true;
}

}  // namespace

bool importDeck(AbaqusModel& model, const char* path, const text::Listener& listener) noexcept {
    if (path == nullptr)
        return text::openFile(path, "r+b", listener) != nullptr;  // false: it tells the listener
    const Clock::time_point start = Clock::now();
    DebugFolder folder;
    bool imported = false;
    try {
        folder = findDebugFolder(path);
        if (readDeck(model, text::openFile(path, "r+b", listener), folder, listener)) {
            publishTimeSince(start);
            imported = true;
        }
    } catch (const std::exception&) {  // memory ran out, or a table would be too long for it
        listener.note(text::FileFinding::kOutOfMemory, {});
    }
    publish(std::move(folder));
    return imported;
}

bool importQuietly(AbaqusModel& model, text::File deck, const text::Listener& listener) noexcept {
    try {
        return readDeck(model, std::move(deck), DebugFolder(),
                        {listener.findings, listener.watch, true});
    } catch (const std::exception&) {
        listener.note(text::FileFinding::kOutOfMemory, {});
        return false;
    }
}

}  // namespace kvocaeio::abaqus
