/// The report on a Nastran deck.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "bounding_box.h"
#include "file_report.h"
#include "kind_counts.h"

namespace kvocaeio::host {

class NastranReport final : public FileReport {
  public:
    int nodeRows = 0;  ///< rows of the node vector, used or not
    std::size_t nodes = 0;
    BoundingBox box;
    int elementRows = 0;
    std::size_t elements = 0;
    KindCounts kinds;
    std::vector<std::array<int, 3>> sections;  ///< property, material, value
    int materials = 0;
    double importSeconds = 0.0;

    void print(std::ostream& out, const PageStyle& style) const override;
    void addTo(Json& object) const override;
    void restoreNumbers(const OriginalOids& originals) override;
    std::vector<std::pair<std::string_view, double>> seconds() const override;
};

}  // namespace kvocaeio::host
