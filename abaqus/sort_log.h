/// The text dump of a normalised model.
#pragma once

#include "abaqus/import_state.h"
#include "abaqus/model.h"

namespace kvocaeio::abaqus {

/// Writes "SortData.log" into the folder, in place of an older one. A log that cannot be
/// written is left out without a word.
void WriteSortLog(const AbaqusModel& model, const DebugFolder& folder);

}  // namespace kvocaeio::abaqus
