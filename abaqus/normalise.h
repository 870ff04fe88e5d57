/// The normalised mesh, derived from the raw tables of an import.
#pragma once

#include "abaqus/model.h"
#include "text/findings.h"

namespace kvocaeio::abaqus {

/// Runs all stages in their order. Does nothing to a model without nodes or element sections. A
/// failure of memory and the length errors of the stages pass out of it; every table is consistent
/// in itself then. The listener's watch is not asked: no file is read.
void SortData(AbaqusModel& model, const text::Listener& listener = {});

}  // namespace kvocaeio::abaqus
