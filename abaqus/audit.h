/// What a report tells of the finished tables: how much was read, and what is wrong with it.
#pragma once

#include "abaqus/model.h"
#include "report/import_report.h"

namespace kvocaeio::abaqus {

/// Over the raw tables, after an import.
void auditImport(const AbaqusModel& model, report::ImportReport& report);

/// Over the normalised mesh.
void auditNormalised(const AbaqusModel& model, report::ImportReport& report);

}  // namespace kvocaeio::abaqus
