/// The passes over a 3DI file that read its wire models and its wires.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "package/model.h"
#include "package/pass_lines.h"
#include "text/ascii.h"

namespace kvocaeio {

inline constexpr Word kColorWord("COLOR");
inline constexpr Word kWireModelsWord("WIRE_MODELS");
inline constexpr Word kWireModelWord("WIRE_MODEL");
inline constexpr Word kWireWord("WIRE");
inline constexpr Word kPolylineWord("3DPL");

enum class WireModelState {
    kSeekingSection,
    kSeekingModel,
    kModelData,
};

/// Appends the names of the wire models. The section has no end, so that the pass sees the
/// "WIRE_MODEL" lines of the wires, too; the lines behind those have too few fields for a model.
template <class Observer>
void readWireModels(PassLines<Observer>& lines, ChunkedList<std::string>& names) {
    WireModelState state = WireModelState::kSeekingSection;
    const auto takeLine = [&] {
        switch (state) {
            case WireModelState::kSeekingSection:
                return lines.nextHolding(kWireModelsWord);
            case WireModelState::kSeekingModel:
                return lines.nextHolding(kWireModelWord);
            case WireModelState::kModelData:
                break;
        }
        return lines.next();
    };
    while (takeLine()) {
        switch (state) {
            case WireModelState::kSeekingSection:
                state = WireModelState::kSeekingModel;
                break;
            case WireModelState::kSeekingModel: {
                int dropped = 0;
                if (scanKeywordLine(lines.line(), kWireModelWord, dropped))
                    state = WireModelState::kModelData;
                break;
            }
            case WireModelState::kModelData: {
                text::Scan scan(lines.line());
                std::string_view name, word;
                double real = 0.0;
                int number = 0;
                if (scan.word(name) && scan.real(real) && scan.integer(number) && scan.word(word)) {
                    std::string folded;
                    text::foldToUpper(name, folded);
                    names.append(std::move(folded));
                }
                state = WireModelState::kSeekingModel;
                break;
            }
        }
    }
}

/// Appends the wires to the model's wire lists.
template <class Observer>
class WirePass {
  public:
    WirePass(PassLines<Observer>& lines, CKVOCadenceReaderImp& model)
        : lines_(lines), model_(model) {}
    /// Drops the wire in hand, at the end of the file as well as where memory runs out.
    ~WirePass() { dropPoints(); }
    WirePass(const WirePass&) = delete;
    WirePass& operator=(const WirePass&) = delete;

    void run() {
        while (takeLine()) {
            switch (state_) {
                case State::kSeekingColor:
                    if (scanKeywordLine(lines_.line(), kColorWord, colorId_))
                        state_ = State::kSeekingModel;
                    break;
                case State::kSeekingModel:
                    if (scanKeywordLine(lines_.line(), kWireModelWord, profile_))
                        state_ = State::kSeekingWire;
                    else
                        restart("the line names no wire model");
                    break;
                case State::kSeekingWire:
                    readWireLine();
                    break;
                case State::kPolylineHead:
                    readPolylineHead();
                    break;
                case State::kPolyline:
                    readPolylineRow();
                    break;
                case State::kComplete:
                    store();
                    state_ = State::kSeekingColor;
                    break;
            }
        }
        if (state_ >= State::kPolylineHead)
            lines_.note(text::Finding::kEndedEarly, "the file ends inside a wire");
    }

  private:
    enum class State {
        kSeekingColor,
        kSeekingModel,
        kSeekingWire,
        kPolylineHead,  // the line behind the wire's
        kPolyline,      // its rows, and the line after them
        kComplete,      // one more line, whatever it holds
    };

    static constexpr std::size_t kNumbersPerRow = 30;
    static constexpr std::size_t kNumbersPerPoint = 3;

    bool takeLine() {
        switch (state_) {
            case State::kSeekingColor:
                return lines_.nextHolding(kColorWord);
            case State::kSeekingModel:
                return lines_.nextHolding(kWireModelWord);
            case State::kSeekingWire:
                return lines_.nextHolding(kWireWord);
            default:
                return lines_.next();
        }
    }

    void readWireLine();
    void readPolylineHead();
    void readPolylineRow();
    void store();

    void restart(std::string_view why) {
        lines_.note(text::Finding::kPassedOver, why);
        dropPoints();
        state_ = State::kSeekingColor;
    }

    void dropPoints() { model_.wirePoints->shrink(storedNumbers_); }

    PassLines<Observer>& lines_;
    CKVOCadenceReaderImp& model_;
    State state_ = State::kSeekingColor;
    int colorId_ = 0;
    int profile_ = 0;
    double diameter_ = 0.0;
    long long pointsExpected_ = 0;
    long long pointsRead_ = 0;
    std::size_t storedNumbers_ = 0;  // of the model's points; behind them those of the wire in hand
};

template <class Observer>
void WirePass<Observer>::readWireLine() {
    text::Scan scan(lines_.line());
    std::string_view word;
    double diameter = 0.0;
    int dropped = 0;
    if (scan.word(word) && scan.real(diameter) && scan.integer(dropped) &&
        kWireWord.isMatchedBy(word)) {
        diameter_ = diameter * model_.unitScale;
        state_ = State::kPolylineHead;
    } else {
        restart("the line gives no wire's diameter");
    }
}

template <class Observer>
void WirePass<Observer>::readPolylineHead() {
    int points = 0;
    if (kPolylineWord.isHeldBy(lines_.line()) &&
        scanKeywordLine(lines_.line(), kPolylineWord, points)) {
        pointsExpected_ = points;
        pointsRead_ = 0;
        state_ = State::kPolyline;
    } else {
        restart("no polyline follows the wire's line");
    }
}

// The points go straight into the model, where they are dropped again if no wire comes of them: the
// count of a polyline sizes nothing, and the longest wire costs its memory once.
template <class Observer>
void WirePass<Observer>::readPolylineRow() {
    std::array<double, kNumbersPerRow> numbers;
    const int count = scanNumbers(lines_.line(), numbers);
    const int perPoint = static_cast<int>(kNumbersPerPoint);
    if (count % perPoint == 0 && pointsRead_ < pointsExpected_) {
        if (count == 0)
            lines_.note(text::Finding::kPassedOver, "the line is no row of a polyline");
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            model_.wirePoints->append(numbers[i] * model_.unitScale);
        pointsRead_ += count / perPoint;
    } else if (pointsRead_ == pointsExpected_) {
        state_ = State::kComplete;
    } else {
        restart("the polyline's points are not as many as it says");
    }
}

template <class Observer>
void WirePass<Observer>::store() {
    model_.wireFirstPoint->append(static_cast<int>(storedNumbers_ / kNumbersPerPoint));
    model_.wireProfile->append(profile_);
    model_.wireDiameter->append(diameter_);
    model_.wireColorId->append(colorId_);
    ++model_.wireCount;
    model_.wireProfileMax = std::max(model_.wireProfileMax, profile_);
    storedNumbers_ = model_.wirePoints->size();
}

}  // namespace kvocaeio
