/// The extraction tool's reports read into flat tables of cells, their columns and length unit.
#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <string_view>

#include "package/length_units.h"
#include "package/model.h"
#include "package/pass_lines.h"
#include "package/report_rows.h"
#include "text/ascii.h"
#include "text/line_reader.h"

namespace kvocaeio {

namespace {

constexpr char kDelimiter = '!';
constexpr double kDefaultUnit = 0.001;

// Leaves the lists absent where there is no memory for them.
void renew(std::unique_ptr<ReportTables::Lists>& lists) {
    lists.reset();
    try {
        lists = std::make_unique<ReportTables::Lists>();
    } catch (const std::bad_alloc&) {
    }
}

// The list that takes the cells of lines with this tag; null for a tag that no line may have.
CellList* listOf(const ReportTables& tables, char tag, std::size_t report) {
    switch (tag) {
        case 'A':
            return &(*tables.headerCells)[report];
        case 'J':
            return &(*tables.jobCells)[report];
        case 'S':
            return &(*tables.dataCells)[report];
        default:
            return nullptr;
    }
}

// Stores a line's cells. False where nothing behind the line is to be read.
bool readReportLine(const ReportTables& tables, std::string_view line, std::size_t report) {
    const std::size_t tagLength = line.find(kDelimiter);
    if (tagLength == std::string_view::npos)
        return true;
    CellList* const cells = tagLength == 1 ? listOf(tables, line.front(), report) : nullptr;
    if (cells == nullptr)
        return false;
    const std::size_t count = cells->appendLine(line, kDelimiter);
    return cells != &(*tables.dataCells)[report] || count == (*tables.headerCells)[report].size();
}

}  // namespace

bool CKVOCadenceReaderImp::ReadReportFiles(InputFile& file0, InputFile& file1, InputFile& file2) {
    renew(reportTables.headerCells);
    renew(reportTables.jobCells);
    renew(reportTables.dataCells);
    if (!ReadReportFile(file0, kSymbolReport) || !ReadReportFile(file1, kLayerReport))
        return false;
    ReadReportFile(file2, kDieStackReport);  // not every design has one
    return true;
}

bool CKVOCadenceReaderImp::ReadReportFile(InputFile& file, int index) {
    if (reportTables.headerCells == nullptr || reportTables.jobCells == nullptr ||
        reportTables.dataCells == nullptr || !file.open())
        return false;
    text::LineReader lines(file.stream.get(), kPackageLineBound, text::LineMode::kText);
    bool complete = true;
    while (complete && lines.next())
        complete = readReportLine(reportTables, lines.line(), static_cast<std::size_t>(index));
    file.close();
    return complete;
}

bool CKVOCadenceReaderImp::ReadReportUnits() {
    if (!hasFullJobLine(reportTables))
        return false;
    const LengthUnit* unit = findLengthUnit(cellsOf(reportTables.jobCells, kSymbolReport)[8]);
    unitScale = unit == nullptr ? kDefaultUnit : unit->millimetres;
    return true;
}

int CKVOCadenceReaderImp::FindColumn(int index, const char* name) const {
    if (name == nullptr || reportTables.headerCells == nullptr)
        return -1;
    const CellList& header = cellsOf(reportTables.headerCells, index);
    const std::string_view sought = name;
    for (std::size_t i = 0; i < header.size(); ++i)
        if (std::ranges::equal(header[i], sought, {}, text::toUpper, text::toUpper))
            return static_cast<int>(i);
    return -1;
}

}  // namespace kvocaeio
