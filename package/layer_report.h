/// The report of a design's layers: how high its substrate and die are, and where its bodies lie.
#pragma once

#include "package/model.h"
#include "text/findings.h"

namespace kvocaeio::package {

/// Places all bodies in z. False where a column is missing. Throws the error of `throwBadSubscript`
/// where no job line names the design.
bool readLayerReport(const Report& report, const text::Listener& listener,
                     ComponentList& components);

}  // namespace kvocaeio::package
