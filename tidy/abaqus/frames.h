/// The meshes of a deck as they are placed, one after the other, with their new numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "tidy/abaqus/deck_lines.h"
#include "tidy/abaqus/model.h"

namespace kvocaeio::tidy::abaqus {

/// An instance, or what the deck holds beside them.
struct Frame {
    int instance;
    const Scope* scope;
    Placement placement;
    std::string_view name;
    std::int64_t nodeShift = 0;  ///< of its numbers in the new deck
    std::int64_t elementShift = 0;
};

/// All frames: the instances in their order, then what is beside them.
class Frames {
  public:
    /// More than this is not written of anything.
    static constexpr std::size_t kMostRows = std::size_t{1} << 28;

    /// Gives each frame numbers that no other one has; the first ones keep theirs. Tells where
    /// there are not enough.
    Frames(const Model& model, DeckLines& lines);

    const std::vector<Frame>& all() const { return frames_; }
    const Frame& of(int instance) const {
        return instance == kOwnScope ? frames_.back() : frames_[static_cast<std::size_t>(instance)];
    }

  private:
    std::vector<Frame> frames_;
};

}  // namespace kvocaeio::tidy::abaqus
