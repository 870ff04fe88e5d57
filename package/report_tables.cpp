/// The extraction tool's reports read into flat tables of cells, their columns and length unit.
#include "package/report_tables.h"

#include <algorithm>

#include "package/length_units.h"
#include "package/lines.h"
#include "text/ascii.h"

namespace kvocaeio::package {

namespace {

constexpr char kDelimiter = '!';
constexpr double kDefaultUnit = 0.001;

// The list that takes the cells of lines with this tag; null for a tag that no line may have.
CellList* listOf(Report& report, std::string_view tag) {
    if (tag == "A")
        return &report.headerCells;
    if (tag == "J")
        return &report.jobCells;
    return tag == "S" ? &report.dataCells : nullptr;
}

// Stores a line's cells. False where nothing after the line is to be read.
bool readReportLine(text::PassLines& lines, Report& report) {
    const std::string_view line = lines.line();
    const std::size_t tagLength = line.find(kDelimiter);
    if (tagLength == std::string_view::npos)
        return true;
    CellList* const cells = listOf(report, line.substr(0, tagLength));
    if (cells == nullptr) {
        lines.note(Finding::kReportTag, line.substr(0, tagLength));
        return false;
    }
    const std::size_t count = cells->appendLine(line, kDelimiter);
    if (cells != &report.dataCells || count == report.headerCells.size())
        return true;
    lines.note(Finding::kReportRow);
    return false;
}

}  // namespace

bool readReport(InputFile& file, const text::Listener& listener, Report& report) {
    bool complete = true;
    return passOver(file, listener,
                    [&](text::PassLines& lines) {
                        while (complete && lines.next())
                            complete = readReportLine(lines, report);
                    }) &&
           complete;
}

int findColumn(const Report& report, std::string_view name) {
    for (std::size_t i = 0; i < report.headerCells.size(); ++i)
        if (std::ranges::equal(report.headerCells[i], name, {}, text::toUpper, text::toUpper))
            return static_cast<int>(i);
    return -1;
}

bool hasFullJobLine(const Report& symbols) {
    constexpr std::size_t kJobLineCells = 13;
    return symbols.jobCells.size() == kJobLineCells;
}

bool readReportUnits(const Report& symbols, const text::Listener& listener, double& unitScale) {
    if (!hasFullJobLine(symbols))
        return false;
    const LengthUnit* const unit = findLengthUnit(symbols.jobCells[8]);
    if (unit == nullptr)
        listener.note(Finding::kReportUnit, symbols.jobCells[8]);
    unitScale = unit == nullptr ? kDefaultUnit : unit->millimetres;
    return true;
}

bool isDesignOf(const Report& report, std::string_view type) {
    return report.jobCells.at(1).find(type) != std::string_view::npos;
}

}  // namespace kvocaeio::package
