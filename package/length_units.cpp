/// The length units of package files, and the pass over a 3DI file that seeks them.
#include "package/length_units.h"

#include <algorithm>
#include <array>

#include "package/lines.h"

namespace kvocaeio::package {

namespace {

// In the order of the tests: the first word that a line holds anywhere decides, so that a "COMMENT"
// makes it millimetres.
constexpr std::array kLengthUnits{
    LengthUnit{"MM", 1.0},      LengthUnit{"MILLIMETERS", 1.0},
    LengthUnit{"UM", 0.001},    LengthUnit{"MICRONS", 0.001},
    LengthUnit{"NM", 0.000001}, LengthUnit{"NANOMETERS", 0.000001},
    LengthUnit{"INCH", 25.4},   LengthUnit{"INCHS", 25.4},
};

}  // namespace

const LengthUnit* findLengthUnit(std::string_view line) {
    const auto unit = std::ranges::find_if(
        kLengthUnits, [&](const LengthUnit& each) { return Word(each.word).isHeldBy(line); });
    return unit == kLengthUnits.end() ? nullptr : &*unit;
}

bool readUnits(InputFile& file, const text::Listener& listener, double& unitScale) {
    return passOver(file, listener, [&](text::PassLines& lines) {
        while (lines.nextWith(Word("3DI"))) {
            if (const LengthUnit* unit = findLengthUnit(lines.line())) {
                unitScale = unit->millimetres;
                return;
            }
            lines.note(Finding::kUnitMissing);
        }
    });
}

}  // namespace kvocaeio::package
