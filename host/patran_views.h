/// A Patran neutral file as its two readers see it.
#pragma once

#include <string>

#include "bounding_box.h"
#include "kind_counts.h"
#include "report.h"

namespace kvocaeio::host {

/// What one of the readers makes of the file.
struct PatranView {
    int nodes = 0;
    BoundingBox box;
    int elements = 0;
    KindCounts kinds;
};

class PatranReport final : public Report {
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
