/// The text dump of the raw tables.
#pragma once

#include "abaqus/import_state.h"
#include "abaqus/model.h"

namespace kvocaeio::abaqus {

/// Writes "InputAbaqus.log" into the folder, replacing an older one. A log that cannot be
/// opened or written is left out without a word.
void writeImportLog(const AbaqusModel& model, const DebugFolder& folder);

}  // namespace kvocaeio::abaqus
