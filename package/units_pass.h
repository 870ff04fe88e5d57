/// The first pass over a 3DI file: the length unit.
#pragma once

#include <algorithm>
#include <array>

#include "package/pass_lines.h"

namespace kvocaeio {

struct LengthUnit {
    Word word;
    double millimetres;
};

// In the order of the tests: the first word that the header holds anywhere decides, so that a
// "COMMENT" makes it millimetres.
inline constexpr std::array kLengthUnits{
    LengthUnit{Word("MM"), 1.0},      LengthUnit{Word("MILLIMETERS"), 1.0},
    LengthUnit{Word("UM"), 0.001},    LengthUnit{Word("MICRONS"), 0.001},
    LengthUnit{Word("NM"), 0.000001}, LengthUnit{Word("NANOMETERS"), 0.000001},
    LengthUnit{Word("INCH"), 25.4},   LengthUnit{Word("INCHS"), 25.4},
};

/// Sets `unitScale` from the first header line with a unit word, and leaves it where there is none.
template <class Observer>
void readUnits(PassLines<Observer>& lines, double& unitScale) {
    static constexpr Word kHeader("3DI");
    while (lines.nextHolding(kHeader)) {
        const auto unit = std::ranges::find_if(
            kLengthUnits, [&](const LengthUnit& each) { return each.word.isHeldBy(lines.line()); });
        if (unit != kLengthUnits.end()) {
            unitScale = unit->millimetres;
            return;
        }
        lines.note(text::Finding::kPassedOver, "the header names no length unit");
    }
}

}  // namespace kvocaeio
