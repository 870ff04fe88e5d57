/// What a report tells of the finished tables: how much was read, and what is wrong with it.
#pragma once

#include "patran/id_map.h"
#include "patran/model.h"
#include "report/import_report.h"

namespace kvocaeio::patran {

/// Over the lists of the bridge.
void auditLists(const ListMesh& mesh, report::ImportReport& report);

/// Over the flat arrays, whose elements still hold node ids.
void auditFlat(const IdMap& nodeIds, const FlatMesh& mesh, report::ImportReport& report);

}  // namespace kvocaeio::patran
