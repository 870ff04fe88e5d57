/// The report of a design's symbols: substrate and die, seen from above.
#pragma once

#include "package/model.h"

namespace kvocaeio::package {

/// Appends at most one substrate and, of a design that is not stacked, one die. False where a
/// column is missing. Throws the error of `throwBadSubscript` where no job line names the design.
bool readSymbolReport(const Report& report, double unitScale, ComponentList& components);

}  // namespace kvocaeio::package
