/// The report of a design's symbols: substrate and die, seen from above.
#pragma once

#include "package/model.h"
#include "text/findings.h"

namespace kvocaeio::package {

/// Appends at most one substrate and, of a design that is not stacked, one die. False where a
/// column is missing. Throws the error of `throwBadSubscript` where no job line names the design.
bool readSymbolReport(const Report& report, const text::Listener& listener, double unitScale,
                      ComponentList& components);

}  // namespace kvocaeio::package
