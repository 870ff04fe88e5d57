/// The length units of package files, and the pass over a 3DI file that seeks them.
#pragma once

#include <string_view>

#include "package/input_file.h"
#include "text/findings.h"

namespace kvocaeio::package {

struct LengthUnit {
    std::string_view word;
    double millimetres;
};

/// The unit whose word `line` holds; null without one.
const LengthUnit* findLengthUnit(std::string_view line);

/// Whether the word of a unit that `line` holds stands there by itself, at most in the plural.
/// `place` is set to the word around it otherwise.
bool standsAlone(std::string_view line, const LengthUnit& unit, std::string_view& place);

/// Sets `unitScale` from the first header line with a unit word, and leaves it where there is none.
bool readUnits(InputFile& file, const text::Listener& listener, double& unitScale);

}  // namespace kvocaeio::package
