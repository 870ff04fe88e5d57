/// Notes of the stages over a report's cells.
#include "package/report_notes.h"

#include <algorithm>

#include "package/report_tables.h"
#include "text/scan.h"

namespace kvocaeio::package {

namespace {

// Column of cell `cell` in a line whose cells begin at `first`: each has a delimiter after it.
std::size_t columnOf(const CellList& cells, std::size_t first, std::size_t cell) {
    std::size_t column = 1;
    for (std::size_t i = first; i < cell; ++i)
        column += cells[i].size() + 1;
    return column;
}

}  // namespace

void ReportNotes::jobCell(Finding finding, std::size_t cell) const {
    if (areHeard())
        at(finding, report_.places.job, columnOf(report_.jobCells, 0, cell), report_.jobCells[cell],
           {});
}

void ReportNotes::cell(Finding finding, std::size_t row, std::size_t column,
                       std::string_view subject) const {
    if (!areHeard())
        return;
    const std::size_t first = row * report_.headerCells.size();
    at(finding, lineOf(row), columnOf(report_.dataCells, first, first + column),
       report_.dataCells[first + column], subject);
}

void ReportNotes::row(Finding finding, std::size_t row, std::string_view what) const {
    if (areHeard())
        at(finding, lineOf(row), 0, what, {});
}

void ReportNotes::column(std::string_view name) const {
    const int column = findColumn(report_, name);
    if (column == -1 && report_.headerCells.size() > 0)
        header(Finding::kColumnMissing, {}, name);
    else if (column != -1 && findColumn(report_, name, static_cast<std::size_t>(column) + 1) != -1)
        header(Finding::kColumnRepeated, {}, name);
}

void ReportNotes::number(std::size_t row, std::size_t column) const {
    text::Scan scan(report_.dataCells[row * report_.headerCells.size() + column]);
    double value = 0.0;
    std::string_view rest;
    if (!scan.real(value) || scan.word(rest))
        cell(Finding::kCellNotNumber, row, column);
}

void ReportNotes::at(Finding finding, std::size_t line, std::size_t column, std::string_view what,
                     std::string_view subject) const {
    if (!areHeard())
        return;
    findings_->returnToFile(report_.places.file);
    findings_->note(rowOf(finding), line, column, what, subject);
}

// The last run that begins at the row or before it. A row whose cells were cut anew has none.
std::size_t ReportNotes::lineOf(std::size_t row) const {
    const auto& runs = report_.places.rows;
    const auto after = std::ranges::upper_bound(runs, row, {}, &ReportPlaces::Run::row);
    return after == runs.begin() ? 0 : after[-1].line + row - after[-1].row;
}

}  // namespace kvocaeio::package
