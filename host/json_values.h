/// What the reports on several formats hold, as JSON.
#pragma once

#include "bounding_box.h"
#include "file_report.h"
#include "kind_counts.h"

namespace kvocaeio::host {

/// The number of the layouts that docs/info.schema.json and docs/convert.schema.json describe. It
/// grows when a host that reads the old layout would be misled by the new one.
inline constexpr int kJsonVersion = 1;

/// {"min": [...], "max": [...]}; null where there is no box.
Json asJson(const BoundingBox& box);

/// The part that reports on all mesh formats have in common.
Json meshAsJson(std::size_t nodes, const BoundingBox& box, std::size_t elements,
                const KindCounts& kinds);

/// {"hexahedra": 12, "quadratic-wedges": 3}.
Json asJson(const KindCounts& kinds);

}  // namespace kvocaeio::host
