/// The rows of a report with named columns, and what a body takes from two coordinates.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "package/model.h"
#include "package/report_tables.h"

namespace kvocaeio::package {

/// The rows of one report, cut by its header as that is now.
template <std::size_t kNames>
class ReportRows {
  public:
    /// Looks up the columns of `names`, in this order. The report is borrowed.
    ReportRows(const Report& report, const std::array<const char*, kNames>& names)
        : report_(report) {
        for (std::size_t i = 0; i < kNames; ++i) {
            const int column = findColumn(report, names[i]);
            hasAllColumns_ = hasAllColumns_ && column != -1;
            places_[i] = static_cast<std::size_t>(column);
        }
    }

    bool hasAllColumns() const { return hasAllColumns_; }

    /// Number of rows; a last one that is not whole does not count.
    std::size_t count() const { return report_.dataCells.size() / report_.headerCells.size(); }

    /// The cell below `names[name]`.
    std::string_view cell(std::size_t row, std::size_t name) const {
        return report_.dataCells[row * report_.headerCells.size() + places_[name]];
    }

  private:
    const Report& report_;
    std::array<std::size_t, kNames> places_{};
    bool hasAllColumns_ = true;
};

/// Sets centre and size of a body along one axis, between two coordinates of a report.
inline void setExtent(ComponentRecord& record, std::size_t axis, double first, double second,
                      double unitScale) {
    const double half = unitScale * 0.5;
    record.center[axis] = (second + first) * half;
    record.size[axis] = (second - first) * unitScale;
}

}  // namespace kvocaeio::package
