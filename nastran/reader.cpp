/// The exported reader and the arrays that it hands out.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <span>
#include <string_view>
#include <vector>

#include "nastran/deck_passes.h"
#include "text/file.h"
#include "text/zeroed_array.h"
#include <kvocaeio/nastran.h>

namespace kvocaeio {

namespace {

struct DeckArrays {
    text::ZeroedArray<float> nodes;
    text::ZeroedArray<int> elements;
    text::ZeroedArray<int> sections;
    text::ZeroedArray<int> materialFlags;
    std::size_t sectionRows = 0;  // rows of `sections` that hold a card
};

}  // namespace

struct NastranFileInfo {
    char path[512] = {};
    DeckExtent extent;
    // All decks ever read: what was handed out stays valid for the reader's life.
    std::vector<DeckArrays> decks;
};

namespace {

DeckArrays readDeck(std::FILE* deck, const DeckExtent& extent, DeckTables& tables) {
    DeckArrays arrays;
    arrays.nodes = text::makeZeroed<float>(text::asSize(extent.maxNodeId), kNodeWidth);
    arrays.elements = text::makeZeroed<int>(text::asSize(extent.maxElemId), kElemWidth);
    tables.extent = extent;
    tables.nodes = arrays.nodes.get();
    tables.elements = arrays.elements.get();
    readCards(deck, tables);
    // One row more than there are sections, as flags go from 0 and a vector of no rows is not null.
    const std::size_t sectionCount = text::asSize(tables.sectionCount);
    arrays.sections = text::makeZeroed<int>(sectionCount + 1, kSectionWidth);
    arrays.materialFlags = text::makeZeroed<int>(sectionCount + 1);
    arrays.sectionRows = std::min(tables.sections.size(), sectionCount);
    int* row = arrays.sections.get();
    for (const SectionRow& section : std::span(tables.sections).first(arrays.sectionRows)) {
        *row++ = section.propertyId;
        *row++ = section.materialId;
        *row++ = section.value;
    }
    return arrays;
}

}  // namespace

}  // namespace kvocaeio

using namespace kvocaeio;

KVONASTRAN_Reader::KVONASTRAN_Reader()
    : nodeVector(nullptr),
      elemVector(nullptr),
      sectionVector(nullptr),
      materialFlags(nullptr),
      sectionCount(0),
      info(new NastranFileInfo) {}

KVONASTRAN_Reader::KVONASTRAN_Reader(const KVONASTRAN_Reader&) = default;
KVONASTRAN_Reader& KVONASTRAN_Reader::operator=(const KVONASTRAN_Reader&) = default;

KVONASTRAN_Reader::~KVONASTRAN_Reader() {
    delete info;
}

bool KVONASTRAN_Reader::SetFilePath(const char* path) {
    info->extent = {};
    const text::File deck = text::openFile(path, "rb");
    if (deck == nullptr)
        return false;
    info->path[std::string_view(path).copy(info->path, sizeof info->path - 1)] = '\0';
    try {
        info->extent = scanIdentifiers(deck.get());
        if (info->extent.maxNodeId < 1 || info->extent.maxElemId < 1 || info->extent.maxPropId < 1)
            return false;
        if (!text::rewindFile(deck.get()))
            return false;
        DeckTables tables;
        info->decks.push_back(readDeck(deck.get(), info->extent, tables));
        const DeckArrays& arrays = info->decks.back();
        nodeVector = arrays.nodes.get();
        elemVector = arrays.elements.get();
        sectionVector = arrays.sections.get();
        materialFlags = arrays.materialFlags.get();
        sectionCount = tables.sectionCount;
        return true;
    } catch (const std::exception&) {  // memory ran out
        info->extent = {};
        return false;
    }
}

int KVONASTRAN_Reader::GetNodeCout() {
    return info->extent.maxNodeId;
}

int KVONASTRAN_Reader::GetElemCout() {
    return info->extent.maxElemId;
}

int KVONASTRAN_Reader::GetSectionCout() {
    return sectionCount;
}

// Rows behind the last card are zero and name no material. A copy of the reader may have read
// another deck since: the rows are those of the deck whose arrays are held here.
int KVONASTRAN_Reader::GetPropertiesCout() {
    const auto deck = std::ranges::find_if(info->decks, [this](const DeckArrays& arrays) {
        return arrays.sections.get() == sectionVector;
    });
    const std::size_t rows = deck == info->decks.end() ? 0 : deck->sectionRows;
    int different = 0;
    for (const bool counting : {false, true})
        for (std::size_t row = 0; row < rows; ++row) {
            const int material = sectionVector[row * kSectionWidth + 1];
            if (material < 1 || material > sectionCount)
                continue;
            int& flag = materialFlags[material];
            different += counting && flag == 0 ? 1 : 0;
            flag = counting ? 1 : 0;
        }
    return different;
}

float* KVONASTRAN_Reader::GetNodeVector() {
    return nodeVector;
}

int* KVONASTRAN_Reader::GetElemVector() {
    return elemVector;
}

int* KVONASTRAN_Reader::GetSectionVector() {
    return sectionVector;
}
