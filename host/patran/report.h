/// The report on a Patran neutral file: what each of its two readers makes of it.
#pragma once

#include <cstddef>
#include <map>
#include <string>

#include "bounding_box.h"
#include "file_report.h"
#include "kind_counts.h"

namespace kvocaeio::host {

/// What one of the readers makes of the file.
struct PatranView {
    std::size_t nodes = 0;
    BoundingBox box;
    std::size_t elements = 0;
    double seconds = 0.0;
};

class PatranReport final : public FileReport {
  public:
    PatranView bridge;                ///< of `CKVO_PatranIO_Bridge`
    PatranView arrays;                ///< of `CPatranReader`
    KindCounts kinds;                 ///< by the shapes that `CPatranReader` returns
    std::map<int, KindCounts> types;  ///< the same by the types that `CKVO_PatranIO_Bridge` returns
    int properties = 0;

    void print(std::ostream& out, const PageStyle& style) const override;
    void addTo(Json& object) const override;
    std::vector<std::pair<std::string_view, double>> seconds() const override;
};

}  // namespace kvocaeio::host
