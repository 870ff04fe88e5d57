/// New numbers, frame by frame.
#include "tidy/abaqus/frames.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace kvocaeio::tidy::abaqus {

namespace {

/// The smallest and largest of a scope's numbers.
struct Range {
    std::int64_t first = std::numeric_limits<std::int64_t>::max();
    std::int64_t last = std::numeric_limits<std::int64_t>::min();

    bool isEmpty() const { return first > last; }
    void add(const GrowingArray<int>& ids) {
        for (const int id : ids) {
            first = std::min<std::int64_t>(first, id);
            last = std::max<std::int64_t>(last, id);
        }
    }
};

/// Numbers that are taken so far, up to the largest.
class TakenNumbers {
  public:
    /// The shift of a range's numbers that makes them new ones.
    std::int64_t take(const Range& range) {
        if (range.isEmpty())
            return 0;
        const bool isFree = taken_.isEmpty() || range.first > taken_.last;
        const std::int64_t shift =
            isFree ? 0 : taken_.last + 1 - std::min<std::int64_t>(range.first, 1);
        taken_.first = std::min(taken_.first, range.first + shift);
        taken_.last = range.last + shift;
        return shift;
    }
    bool isOver() const { return !taken_.isEmpty() && !std::in_range<int>(taken_.last); }

  private:
    Range taken_;
};

struct Ranges {
    Range nodes;
    Range elements;
};

std::vector<Ranges> rangesOf(const Model& model) {
    std::vector<Ranges> ranges(model.scopes.size());
    for (std::size_t row = 0; row < ranges.size(); ++row) {
        ranges[row].nodes.add(model.scopes[row].nodes.ids);
        for (const Block& block : model.scopes[row].blocks)
            ranges[row].elements.add(block.ids);
    }
    return ranges;
}

const Place& placeOf(const Model& model, int instance) {
    return instance == kOwnScope ? model.scopes[0].definedAt
                                 : model.instances[static_cast<std::size_t>(instance)].definedAt;
}

}  // namespace

Frames::Frames(const Model& model, DeckLines& lines) {
    for (std::size_t i = 0; i < model.instances.size(); ++i) {
        const Instance& instance = model.instances[i];
        frames_.push_back({static_cast<int>(i), &model.scopes[instance.scope], instance.placement,
                           instance.name});
    }
    frames_.push_back({kOwnScope, model.scopes.data(), {}, {}});
    const std::vector<Ranges> ranges = rangesOf(model);
    TakenNumbers nodes;
    TakenNumbers elements;
    std::size_t rows = 0;
    for (Frame& frame : frames_) {
        const Ranges& range = ranges[static_cast<std::size_t>(frame.scope - model.scopes.data())];
        frame.nodeShift = nodes.take(range.nodes);
        frame.elementShift = elements.take(range.elements);
        rows += std::max<std::size_t>(frame.scope->nodes.ids.size(), frame.scope->elements.count());
        if (nodes.isOver() || elements.isOver() || rows > kMostRows) {
            lines.noteAt(Finding::kTooMuch, placeOf(model, frame.instance), frame.name,
                         "numbers of the instances");
            break;
        }
    }
}

}  // namespace kvocaeio::tidy::abaqus
