/// The text dump of a normalised model.
#pragma once

#include "abaqus/model.h"

namespace kvocaeio {

/// Writes "SortData.log" into the debug folder, in place of an older one. A log that cannot be
/// written is left out without a word.
void WriteSortLog(const AbaqusModel& model);

}  // namespace kvocaeio
