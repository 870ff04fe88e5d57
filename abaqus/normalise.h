/// The normalised mesh, derived from the raw tables of an import.
#pragma once

#include "abaqus/model.h"

namespace kvocaeio {

/// Runs all stages in their order. Does nothing to a model without nodes or element sections. A
/// failure of memory and the length errors of the stages pass out of it; every table is consistent
/// in itself then.
void SortData(AbaqusModel& model);

}  // namespace kvocaeio
