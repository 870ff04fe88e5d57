/// The report on a Patran neutral file: what each of its two readers makes of it.
#pragma once

#include <string>

#include "bounding_box.h"
#include "file_report.h"
#include "kind_counts.h"

namespace kvocaeio::host {

/// What one of the readers makes of the file.
struct PatranView {
    int nodes = 0;
    BoundingBox box;
    int elements = 0;
    KindCounts kinds;
};

class PatranReport final : public FileReport {
  public:
    PatranView bridge;  ///< of `CKVO_PatranIO_Bridge`
    PatranView arrays;  ///< of `CPatranReader`
    int properties = 0;
    double bridgeSeconds = 0.0;
    double arraysSeconds = 0.0;

    void print(std::ostream& out) const override;
    void addTo(Json& object) const override;
};

}  // namespace kvocaeio::host
