/// The first pass over a 3DI file: the length unit.
#pragma once

#include "package/length_units.h"
#include "package/pass_lines.h"

namespace kvocaeio {

/// Sets `unitScale` from the first header line with a unit word, and leaves it where there is none.
template <class Observer>
void readUnits(PassLines<Observer>& lines, double& unitScale) {
    static constexpr Word kHeader("3DI");
    while (lines.nextHolding(kHeader)) {
        if (const LengthUnit* unit = findLengthUnit(lines.line())) {
            unitScale = unit->millimetres;
            return;
        }
        lines.note(text::Finding::kPassedOver, "the header names no length unit");
    }
}

}  // namespace kvocaeio
