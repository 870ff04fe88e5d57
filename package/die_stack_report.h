/// The report of a stacked design's dies, interposers and spacers.
#pragma once

#include "package/model.h"
#include "text/findings.h"

namespace kvocaeio::package {

/// Appends a body for each of its rows. False where a column is missing.
bool readDieStackReport(const Report& report, const text::Listener& listener, double unitScale,
                        ComponentList& components);

}  // namespace kvocaeio::package
