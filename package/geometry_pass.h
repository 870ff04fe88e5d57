/// The pass over a 3DI file that reads its geometry blocks.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "package/geometry_block.h"
#include "package/pass_lines.h"
#include "text/ascii.h"

namespace kvocaeio {

/// What a line in the head of a block is.
enum class HeadLine : std::size_t {
    kSectionTitle,
    kName,
    kObject,
    kLayer,
    kColor,
    kExtrusion,
    kBall,
    kPolygon,
    kEnd,
    kNextBlock,
    kOther,
};

// In the order of the tests and of `HeadLine`: the first word that the line holds decides.
inline constexpr WordList kHeadWords(std::to_array<std::string_view>({
    "GEOMETRIES",
    "NAME",
    "OBJECT",
    "LAYER",
    "COLOR",
    "EXTR",
    "BARL",
    "2DPG",
    "####",
    "GEOM",
}));

/// Appends the bodies of all blocks to `components`, until the end of the file or the error of
/// `throwBadSubscript`.
template <class Observer>
class GeometryPass {
  public:
    GeometryPass(PassLines<Observer>& lines, const BodyKinds& kinds,
                 const CKVOCadenceReaderImp& model, ComponentList& components)
        : lines_(lines), kinds_(kinds), model_(model), components_(components) {}

    void run() {
        while (takeLine()) {
            switch (state_) {
                case State::kSeeking:
                    seekBlock();
                    break;
                case State::kHead:
                    readHeadLine();
                    break;
                case State::kPolygon:
                    readPolygonRow();
                    break;
            }
        }
        if (state_ != State::kSeeking)
            lines_.note(text::Finding::kEndedEarly, "the file ends inside a block");
    }

  private:
    enum class State {
        kSeeking,  // no block is open
        kHead,     // in a block, ahead of its polygon
        kPolygon,  // in the rows of its polygon; the block is finished with the last of them
    };

    static constexpr Word kBlock{"GEOM"};
    static constexpr Word kSectionTitle{"GEOMETRIES"};

    // A block opened from `kSeeking` starts with these maxima; one opened by the line that finishes
    // the block before starts with 0, so that it always reaches to the origin.
    static constexpr double kStartOfMaxima = -1e10;

    static constexpr std::size_t kNumbersPerRow = 20;

    bool takeLine() {
        return state_ == State::kSeeking ? lines_.nextHolding(kBlock) : lines_.next();
    }

    void seekBlock() {
        if (!kSectionTitle.isHeldBy(lines_.line()))
            openBlock(kStartOfMaxima);
    }

    void openBlock(double startOfMaxima) {
        block_.reset(startOfMaxima);
        pointsExpected_ = pointsRead_ = 0;
        state_ = State::kHead;
    }

    void finish() {
        state_ = State::kSeeking;
        if (finishBlock(block_, kinds_, model_, record_))
            components_.append(record_);
    }

    void readHeadLine();
    void readPolygonHead();
    void readPolygonRow();

    void stale() { lines_.note(text::Finding::kStale, "not all fields of the line can be read"); }

    PassLines<Observer>& lines_;
    const BodyKinds& kinds_;
    const CKVOCadenceReaderImp& model_;
    ComponentList& components_;
    State state_ = State::kSeeking;
    GeometryBlock block_;
    long long pointsExpected_ = 0;
    long long pointsRead_ = 0;
    ComponentRecord record_;  // one for all blocks: a ball keeps the body's y and z size before it
};

template <class Observer>
void GeometryPass<Observer>::readHeadLine() {
    const std::string_view line = lines_.line();
    text::Scan scan(line);
    std::string_view word;
    const auto number = [&](int& value) {
        int read = 0;
        if (scan.word(word) && scan.integer(read))
            value = read;
        else
            stale();
    };
    switch (HeadLine{kHeadWords.firstHeldBy(line)}) {
        case HeadLine::kSectionTitle:
            break;
        case HeadLine::kName:
            if (scan.word(word) && scan.word(word))
                text::foldToUpper(word, block_.name);
            else
                stale();
            break;
        case HeadLine::kObject:
            number(block_.objectId);
            break;
        case HeadLine::kLayer:
            number(block_.layerId);
            break;
        case HeadLine::kColor:
            number(block_.colorId);
            break;
        case HeadLine::kExtrusion: {
            int dropped = 0;
            AxisRange z{};
            if (scan.word(word) && scan.integer(dropped) && scan.real(z.min) && scan.real(z.max))
                block_.z = z;
            else
                stale();
            break;
        }
        case HeadLine::kBall: {
            std::array<double, 6> fields{};
            int dropped = 0;
            bool complete = scan.word(word);
            for (double& field : fields)
                complete = complete && scan.real(field);
            if (complete && scan.integer(dropped))
                block_.setBall(fields[0], fields[1], fields[2], fields[3], fields[5]);
            else
                stale();
            break;
        }
        case HeadLine::kPolygon:
            readPolygonHead();
            break;
        case HeadLine::kEnd:
            finish();
            break;
        case HeadLine::kNextBlock:
            finish();
            openBlock(0.0);
            break;
        case HeadLine::kOther:
            break;
    }
}

template <class Observer>
void GeometryPass<Observer>::readPolygonHead() {
    text::Scan scan(lines_.line());
    std::string_view word;
    int points = 0;
    if (!scan.word(word) || !scan.integer(points)) {
        stale();
    } else if (isWanted(block_, kinds_)) {
        pointsExpected_ = points;
        state_ = State::kPolygon;
    } else {
        state_ = State::kSeeking;
    }
}

template <class Observer>
void GeometryPass<Observer>::readPolygonRow() {
    if (kSectionTitle.isHeldBy(lines_.line()))
        return;
    std::array<double, kNumbersPerRow> numbers;
    const int count = scanNumbers(lines_.line(), numbers);
    if (count <= 0 || count % 2 != 0)
        lines_.note(text::Finding::kPassedOver, "the line is no row of a polygon");
    if (count % 2 == 0 && pointsRead_ < pointsExpected_) {
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); i += 2) {
            block_.x.widen(numbers[i]);
            block_.y.widen(numbers[i + 1]);
            ++pointsRead_;
        }
    } else if (pointsRead_ > pointsExpected_) {
        lines_.note(text::Finding::kPassedOver, "the polygon has more points than it says");
        state_ = State::kSeeking;
    }
    if (pointsRead_ == pointsExpected_)
        finish();
}

}  // namespace kvocaeio
