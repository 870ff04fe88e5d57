/// What the reports on several formats hold, as JSON.
#pragma once

#include "bounding_box.h"
#include "file_report.h"
#include "kind_counts.h"

namespace kvocaeio::host {

/// {"min": [...], "max": [...]}; null where there is no box.
Json asJson(const BoundingBox& box);

/// {"hexahedra": 12, "wedges": 3}.
Json asJson(const KindCounts& kinds);

}  // namespace kvocaeio::host
