/// The sink of the first pass: counts blocks and entries.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "abaqus/element_type.h"

namespace kvocaeio::abaqus {

/// Number of tokens on a data line, split at commas, blanks and line ends.
std::size_t countDataTokens(std::string_view line);

class DeckCounts {
  public:
    struct ElementBlock {
        std::size_t elements = 0;
        std::size_t nodesPerElem = 0;
    };

    std::vector<std::size_t> nodeBlocks;  ///< nodes per `*NODE` block
    std::vector<ElementBlock> elementBlocks;
    std::size_t shellSections = 0;
    std::size_t surfaces = 0;
    std::size_t dloads = 0;
    std::size_t elsets = 0;

    // What the scanner calls; deck_store.h says more.
    void beginNodes() { nodeBlocks.push_back(0); }
    void addNode(std::string_view) { ++nodeBlocks.back(); }
    void beginElements(std::string_view, std::string_view, ElementType type) {
        elementBlocks.push_back({0, static_cast<std::size_t>(type.nodesPerElem)});
    }
    std::size_t addElementTokens(std::string_view line, std::size_t wanted) {
        return std::min(countDataTokens(line), wanted);
    }
    void repeatLastNumber(std::size_t) {}
    void endElement() { ++elementBlocks.back().elements; }
    void beginElset(std::string_view, bool) { ++elsets; }
    void addMembers(std::string_view) {}
    void setRange(std::string_view) {}
    void beginSurface(std::string_view, std::string_view) { ++surfaces; }
    void addSurfaceItem(std::string_view) {}
    void beginDload() { ++dloads; }
    void addLoad(std::string_view) {}
    void beginShellSection(std::string_view, std::string_view) { ++shellSections; }
    void setThickness(std::string_view) {}
};

}  // namespace kvocaeio::abaqus
