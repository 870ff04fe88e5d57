/// The sink of the first pass: counts blocks and entries.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "abaqus/element_type.h"

namespace kvocaeio {

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

    /// Nodes of all blocks.
    std::size_t nodes() const;

    // What the scanner calls; deck_store.h says more. Nothing is unreadable where nothing is read.
    void beginNodes() { nodeBlocks.push_back(0); }
    bool addNode(std::string_view) {
        ++nodeBlocks.back();
        return true;
    }
    void beginElements(std::string_view, std::string_view, ElementType type) {
        elementBlocks.push_back({0, static_cast<std::size_t>(type.nodesPerElem)});
    }
    std::size_t addElementTokens(std::string_view line, std::size_t wanted) {
        const std::size_t tokens = countDataTokens(line);
        return tokens < wanted ? tokens : wanted;
    }
    void repeatLastNumber(std::size_t) {}
    void endElement() { ++elementBlocks.back().elements; }
    void beginElset(std::string_view, bool) { ++elsets; }
    bool addMembers(std::string_view) { return true; }
    bool setRange(std::string_view) { return true; }
    void beginSurface(std::string_view, std::string_view) { ++surfaces; }
    bool addSurfaceItem(std::string_view) { return true; }
    void beginDload() { ++dloads; }
    bool addLoad(std::string_view) { return true; }
    void beginShellSection(std::string_view, std::string_view) { ++shellSections; }
    bool setThickness(std::string_view) { return true; }
};

}  // namespace kvocaeio
