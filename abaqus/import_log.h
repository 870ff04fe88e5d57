/// The text dump of the raw tables.
#pragma once

#include "abaqus/model.h"

namespace kvocaeio {

/// Writes "InputAbaqus.log" into the debug folder, replacing an older one. A log that cannot be
/// opened or written is left out without a word.
void writeImportLog(const AbaqusModel& model);

}  // namespace kvocaeio
