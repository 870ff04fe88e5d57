/// What imports of packages notice beside the content.
#pragma once

#include <array>
#include <cstddef>

#include "text/findings.h"

namespace kvocaeio::package {

enum class Finding : std::size_t {
    kLineCut,
    kUnitMissing,
    kTableLeft,
    kIdOutOfRange,
    kHeadField,
    kPointRow,
    kPointCount,
    kWireModel,
    kWireDiameter,
    kWirePolyline,
    kCutShort,
    kReportTag,
    kReportRow,
    kReportUnit,
    kCount,
};

/// In the order of `Finding`.
inline constexpr std::array kFindingKinds{
    text::FindingKind{"package.line-cut", "the line is too long: its rest is the next line"},
    text::FindingKind{"package.unit-missing", "the header names no length unit"},
    text::FindingKind{"package.table-left", "the line is no row: nothing below it is a table"},
    text::FindingKind{"package.id-out-of-range", "no table has a row of this id"},
    text::FindingKind{"package.head-field", "not all fields of the line can be read"},
    text::FindingKind{"package.point-row", "the line is no row of points"},
    text::FindingKind{"package.point-count", "the points are not as many as was said"},
    text::FindingKind{"package.wire-model", "the line names no wire model"},
    text::FindingKind{"package.wire-diameter", "the line has no wire's diameter"},
    text::FindingKind{"package.wire-polyline", "no polyline follows the wire's line"},
    text::FindingKind{"package.cut-short", "the file ends inside a block or wire"},
    text::FindingKind{"package.report-tag",
                      "no report has lines of this tag: the rest is not read"},
    text::FindingKind{"package.report-row", "the row has not a cell for each column"},
    text::FindingKind{"package.report-unit", "no length unit is named: micrometres are taken"},
};
static_assert(kFindingKinds.size() == static_cast<std::size_t>(Finding::kCount));

}  // namespace kvocaeio::package
