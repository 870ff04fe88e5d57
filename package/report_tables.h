/// The extraction tool's reports read into flat tables of cells, their columns and length unit.
#pragma once

#include <cstddef>
#include <string_view>

#include "package/input_file.h"
#include "package/model.h"
#include "text/findings.h"

namespace kvocaeio::package {

/// Adds a file's cells to a report, up to a line that is none of a report. False for such a line
/// and for a file that cannot be opened, and where the listener has stopped the import.
bool readReport(InputFile& file, const text::Listener& listener, Report& report);

/// Index of the first column from `first` on with that name, in any case; -1 without one.
int findColumn(const Report& report, std::string_view name, std::size_t first = 0);

/// Whether the symbol report has one job line of all its facts, and thus a unit and a design.
bool hasFullJobLine(const Report& symbols);
/// Cell of that line with the length unit.
inline constexpr std::size_t kUnitCell = 8;

/// Sets `unitScale` by the symbol report. False where that has not one full job line.
bool readReportUnits(const Report& symbols, const text::Listener& listener, double& unitScale);

/// Whether the design's name, as the report has it, holds `type`. Throws the error of
/// `throwBadSubscript` where the report has no job line that names the design.
bool isDesignOf(const Report& report, std::string_view type);

}  // namespace kvocaeio::package
