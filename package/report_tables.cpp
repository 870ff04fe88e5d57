/// The extraction tool's reports read into flat tables of cells, their columns and length unit.
#include "package/report_tables.h"

#include <algorithm>
#include <string>

#include "package/length_units.h"
#include "package/lines.h"
#include "package/report_notes.h"
#include "text/ascii.h"
#include "text/scan.h"

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

// What only a listener needs of a line whose cells come next into `cells`.
void keepPlace(text::PassLines& lines, const CellList& cells, Report& report) {
    const std::size_t line = lines.place().line;
    ReportPlaces& places = report.places;
    if (&cells == &report.jobCells) {
        places.job = places.job == 0 ? line : places.job;
    } else if (&cells == &report.headerCells) {
        places.header = places.header == 0 ? line : places.header;
        if (report.dataCells.size() > 0)
            lines.note(Finding::kHeaderLate);
    } else if (report.headerCells.size() > 0) {
        const std::size_t row = cells.size() / report.headerCells.size();
        if (places.rows.empty() || places.rows.back().line + row != places.rows.back().row + line)
            places.rows.push_back({row, line});
    }
    const std::string_view rest = lines.line().substr(lines.line().rfind(kDelimiter) + 1);
    if (!std::ranges::all_of(rest, text::isSpace))
        lines.note(Finding::kReportRest, rest);
}

// Stores a line's cells. False where nothing after the line is to be read.
bool readReportLine(text::PassLines& lines, Report& report) {
    const std::string_view line = lines.line();
    const std::size_t tagLength = line.find(kDelimiter);
    if (tagLength == std::string_view::npos) {
        if (!std::ranges::all_of(line, text::isSpace))
            lines.note(Finding::kReportLine);
        return true;
    }
    CellList* const cells = listOf(report, line.substr(0, tagLength));
    if (cells == nullptr) {
        lines.note(Finding::kReportTag, line.substr(0, tagLength));
        return false;
    }
    if (lines.areNoted())
        keepPlace(lines, *cells, report);
    const std::size_t count = cells->appendLine(line, kDelimiter);
    if (cells != &report.dataCells || count == report.headerCells.size())
        return true;
    lines.note(Finding::kReportRow);
    return false;
}

}  // namespace

bool readReport(InputFile& file, const text::Listener& listener, Report& report) {
    bool complete = true;
    const auto read = [&](text::PassLines& lines) {
        if (listener.findings != nullptr)
            report.places.file = listener.findings->presentFile();
        lines.noteNulsAs(Finding::kLineNul);
        while (complete && lines.next())
            complete = readReportLine(lines, report);
    };
    return passOver(file, listener, read, &rowOf(Finding::kLineCut)) && complete;
}

int findColumn(const Report& report, std::string_view name, std::size_t first) {
    for (std::size_t i = first; i < report.headerCells.size(); ++i)
        if (std::ranges::equal(report.headerCells[i], name, {}, text::toUpper, text::toUpper))
            return static_cast<int>(i);
    return -1;
}

bool hasFullJobLine(const Report& symbols) {
    constexpr std::size_t kJobLineCells = 13;
    return symbols.jobCells.size() == kJobLineCells;
}

bool readReportUnits(const Report& symbols, const text::Listener& listener, double& unitScale) {
    const ReportNotes notes(symbols, listener);
    if (!hasFullJobLine(symbols)) {
        if (notes.areHeard())
            notes.job(Finding::kJobLine, std::to_string(symbols.jobCells.size()) + " cells");
        return false;
    }
    const std::string_view cell = symbols.jobCells[kUnitCell];
    const LengthUnit* const unit = findLengthUnit(cell);
    std::string_view place;
    if (unit == nullptr)
        notes.jobCell(Finding::kReportUnit, kUnitCell);
    else if (notes.areHeard() && !standsAlone(cell, *unit, place))
        notes.jobCell(Finding::kUnitInWord, kUnitCell);
    unitScale = unit == nullptr ? kDefaultUnit : unit->millimetres;
    return true;
}

bool isDesignOf(const Report& report, std::string_view type) {
    return report.jobCells.at(1).find(type) != std::string_view::npos;
}

}  // namespace kvocaeio::package
