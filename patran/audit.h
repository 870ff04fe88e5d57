/// What a report tells of the finished tables: how much was read, and what is wrong with it.
#pragma once

#include <cstddef>

#include "patran/id_map.h"
#include "patran/model.h"
#include "report/import_report.h"

namespace kvocaeio::patran {

/// How many rows the lists had before an import.
struct RowsBefore {
    std::size_t nodes;
    std::size_t elements;
};

/// Over the lists of the bridge, while corners of what was imported still are node ids.
void auditLists(const IdMap& nodeIds, const ListMesh& mesh, const RowsBefore& before,
                text::Findings& findings) noexcept;

/// How much the bridge hands out.
void countLists(const ListMesh& mesh, report::ImportReport& report);

/// Over the flat arrays, whose elements still hold node ids.
void auditFlat(const IdMap& nodeIds, const FlatMesh& mesh, report::ImportReport& report);

}  // namespace kvocaeio::patran
