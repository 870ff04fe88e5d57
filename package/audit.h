/// What a report tells of the finished tables: how much was read, and what is wrong with it.
#pragma once

#include "package/model.h"
#include "report/import_report.h"

namespace kvocaeio::package {

/// Over the bodies.
void auditBodies(const Model& model, report::ImportReport& report);

/// Over the bodies and the wires, with their models, of a 3DI file.
void auditPackage(const Model& model, report::ImportReport& report);

}  // namespace kvocaeio::package
