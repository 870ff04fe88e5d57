/// The length units of package files.
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

#include "package/words.h"

namespace kvocaeio {

struct LengthUnit {
    Word word;
    double millimetres;
};

// In the order of the tests: the first word that a text holds anywhere decides, so that a "COMMENT"
// makes it millimetres.
inline constexpr std::array kLengthUnits{
    LengthUnit{Word("MM"), 1.0},      LengthUnit{Word("MILLIMETERS"), 1.0},
    LengthUnit{Word("UM"), 0.001},    LengthUnit{Word("MICRONS"), 0.001},
    LengthUnit{Word("NM"), 0.000001}, LengthUnit{Word("NANOMETERS"), 0.000001},
    LengthUnit{Word("INCH"), 25.4},   LengthUnit{Word("INCHS"), 25.4},
};

/// The unit whose word `text` holds; null without one.
inline const LengthUnit* findLengthUnit(std::string_view text) {
    const auto unit = std::ranges::find_if(
        kLengthUnits, [&](const LengthUnit& each) { return each.word.isHeldBy(text); });
    return unit == kLengthUnits.end() ? nullptr : &*unit;
}

}  // namespace kvocaeio
