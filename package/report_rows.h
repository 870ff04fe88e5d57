/// The reports as their readers see them: rows with named columns, the design, numbers.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>

#include "package/model.h"

namespace kvocaeio {

inline constexpr int kSymbolReport = 0;
inline constexpr int kLayerReport = 1;
inline constexpr int kDieStackReport = 2;

/// The list of one report. Throws the error of `throwBadSubscript` while there are no lists.
inline const CellList& cellsOf(const std::unique_ptr<ReportTables::Lists>& lists, int report) {
    if (lists == nullptr)
        throwBadSubscript();
    return (*lists)[static_cast<std::size_t>(report)];
}

/// Whether the symbol report has one job line of all its facts, and thus a unit and a design.
inline bool hasFullJobLine(const ReportTables& tables) {
    constexpr std::size_t kJobLineCells = 13;
    return tables.jobCells != nullptr &&
           cellsOf(tables.jobCells, kSymbolReport).size() == kJobLineCells;
}

/// The design's name as a report has it. Throws the error of `throwBadSubscript` without one.
inline std::string_view designOf(const ReportTables& tables, int report) {
    return cellsOf(tables.jobCells, report).at(1);
}

inline bool holds(std::string_view text, std::string_view sought) {
    return text.find(sought) != std::string_view::npos;
}

/// The rows of one report, cut by its header as that is now.
template <std::size_t kNames>
class ReportRows {
  public:
    /// Looks up the columns of `names`, in this order.
    ReportRows(const CKVOCadenceReaderImp& model, int report,
               const std::array<const char*, kNames>& names) {
        for (std::size_t i = 0; i < kNames; ++i) {
            const int column = model.FindColumn(report, names[i]);
            if (column == -1)
                return;
            places_[i] = static_cast<std::size_t>(column);
        }
        columns_ = cellsOf(model.reportTables.headerCells, report).size();
        cells_ = &cellsOf(model.reportTables.dataCells, report);
    }

    bool hasAllColumns() const { return cells_ != nullptr; }

    /// Number of rows; a last one that is not whole does not count.
    std::size_t count() const { return cells_->size() / columns_; }

    /// The cell below `names[name]`.
    std::string_view cell(std::size_t row, std::size_t name) const {
        return (*cells_)[row * columns_ + places_[name]];
    }

  private:
    std::array<std::size_t, kNames> places_{};
    std::size_t columns_ = 0;
    const CellList* cells_ = nullptr;
};

/// Sets centre and size of a body along one axis, between two coordinates of a report.
inline void setExtent(ComponentRecord& record, std::size_t axis, double first, double second,
                      double unitScale) {
    const double half = unitScale * 0.5;
    record.center[axis] = (second + first) * half;
    record.size[axis] = (second - first) * unitScale;
}

}  // namespace kvocaeio
