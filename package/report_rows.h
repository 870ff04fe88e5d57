/// The rows of a report with named columns, and what a body takes from two coordinates.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "package/model.h"
#include "package/report_notes.h"
#include "package/report_tables.h"

namespace kvocaeio::package {

/// The rows of one report, cut by its header as that is now.
template <std::size_t kNames>
class ReportRows {
  public:
    /// Looks up the columns of `names`, in this order. The report and its notes are borrowed.
    ReportRows(const Report& report, const std::array<const char*, kNames>& names,
               const ReportNotes& notes)
        : report_(report), notes_(notes) {
        if (report.headerCells.size() == 0)
            notes.header(Finding::kHeaderMissing, {});
        for (std::size_t i = 0; i < kNames; ++i) {
            const int column = findColumn(report, names[i]);
            hasAllColumns_ = hasAllColumns_ && column != -1;
            places_[i] = static_cast<std::size_t>(column);
            if (notes.areHeard())
                notes.column(names[i]);
        }
    }

    bool hasAllColumns() const { return hasAllColumns_; }

    /// Number of rows; a last one that is not whole does not count.
    std::size_t count() const { return report_.dataCells.size() / report_.headerCells.size(); }

    /// The cell below `names[name]`.
    std::string_view cell(std::size_t row, std::size_t name) const {
        return report_.dataCells[row * report_.headerCells.size() + places_[name]];
    }

    const ReportNotes& notes() const { return notes_; }
    /// Notes the cell below `names[name]`, and whether it is a number.
    void noteNumber(std::size_t row, std::size_t name) const { notes_.number(row, places_[name]); }
    void note(Finding finding, std::size_t row, std::size_t name,
              std::string_view subject = {}) const {
        notes_.cell(finding, row, places_[name], subject);
    }

  private:
    const Report& report_;
    const ReportNotes& notes_;
    std::array<std::size_t, kNames> places_{};
    bool hasAllColumns_ = true;
};

/// Notes what is wrong with a body of this row: ends that are exchanged, lengths that are no
/// numbers, and those among its cells from `box` on, two for each axis.
template <std::size_t kNames>
void noteBox(const ReportRows<kNames>& rows, std::size_t row, std::size_t box, std::size_t axes,
             const ComponentRecord& record) {
    for (std::size_t i = 0; i < 2 * axes; ++i)
        rows.noteNumber(row, box + i);
    const auto isNegative = [](double length) { return length < 0.0; };
    const auto isFinite = [](double length) { return std::isfinite(length); };
    if (std::ranges::any_of(record.size, isNegative))
        rows.notes().row(Finding::kSizeNegative, row, record.name);
    if (!std::ranges::all_of(record.center, isFinite) ||
        !std::ranges::all_of(record.size, isFinite))
        rows.notes().row(Finding::kNotFinite, row, record.name);
}

/// Sets centre and size of a body along one axis, between two coordinates of a report.
inline void setExtent(ComponentRecord& record, std::size_t axis, double first, double second,
                      double unitScale) {
    const double half = unitScale * 0.5;
    record.center[axis] = (second + first) * half;
    record.size[axis] = (second - first) * unitScale;
}

}  // namespace kvocaeio::package
