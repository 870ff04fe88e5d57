/// What a report tells of the finished tables: how much was read, and what is wrong with it.
#pragma once

#include "package/model.h"
#include "report/import_report.h"

namespace kvocaeio::package {

/// Over bodies and wires.
void auditModel(const Model& model, report::ImportReport& report);

}  // namespace kvocaeio::package
