/// The exported reader and the arrays that it hands out.
#include <cstdio>
#include <exception>
#include <memory>
#include <string_view>
#include <vector>

#include "nastran/deck_passes.h"
#include "text/file.h"
#include "text/zeroed_array.h"
#include <kvocaeio/nastran.h>

namespace kvocaeio {

struct NastranFileInfo {
    char path[512] = {};
    DeckExtent extent;
    std::size_t sectionRows = 0;  // rows of the section vector that hold a card
    // All arrays ever made: what was handed out stays valid for the reader's life.
    std::vector<std::unique_ptr<void, text::ReleaseZeroed>> arrays;
};

namespace {

// The arrays of one deck, not handed out yet.
struct DeckArrays {
    text::ZeroedArray<float> nodes;
    text::ZeroedArray<int> elements;
    text::ZeroedArray<int> sections;
    text::ZeroedArray<int> materialFlags;
};

DeckArrays readDeck(std::FILE* deck, const DeckExtent& extent, DeckTables& tables) {
    DeckArrays arrays;
    arrays.nodes = text::makeZeroed<float>(text::asSize(extent.maxNodeId), kNodeWidth);
    arrays.elements = text::makeZeroed<int>(text::asSize(extent.maxElemId), kElemWidth);
    tables.extent = extent;
    tables.nodes = arrays.nodes.get();
    tables.elements = arrays.elements.get();
    readCards(deck, tables);
    arrays.sections = text::makeZeroed<int>(text::asSize(tables.sectionCount), kSectionWidth);
    arrays.materialFlags = text::makeZeroed<int>(text::asSize(tables.sectionCount) + 1);
    if (tables.sections.size() > text::asSize(tables.sectionCount))
        tables.sections.resize(text::asSize(tables.sectionCount));
    int* row = arrays.sections.get();
    for (const SectionRow& section : tables.sections) {
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
        const DeckExtent extent = scanIdentifiers(deck.get());
        if (extent.maxNodeId < 1 || extent.maxElemId < 1 || extent.maxPropId < 1)
            return false;
        std::rewind(deck.get());
        DeckTables tables;
        DeckArrays arrays = readDeck(deck.get(), extent, tables);
        info->arrays.reserve(info->arrays.size() + 4);
        const auto handOut = [this](auto& array) {
            auto* const values = array.release();
            info->arrays.emplace_back(values);
            return values;
        };
        nodeVector = handOut(arrays.nodes);
        elemVector = handOut(arrays.elements);
        sectionVector = handOut(arrays.sections);
        materialFlags = handOut(arrays.materialFlags);
        sectionCount = tables.sectionCount;
        info->sectionRows = tables.sections.size();
        info->extent = extent;
        return true;
    } catch (const std::exception&) {  // memory ran out
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

// Rows behind the last card are zero and name no material.
int KVONASTRAN_Reader::GetPropertiesCout() {
    int different = 0;
    for (const bool counting : {false, true})
        for (std::size_t row = 0; row < info->sectionRows; ++row) {
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
