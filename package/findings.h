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
    text::FindingKind{"package.line-cut", text::Severity::kWarning,
                      "the line is too long: its rest is the next line", "", ""},
    text::FindingKind{"package.unit-missing", text::Severity::kWarning,
                      "the header names no length unit", "", ""},
    text::FindingKind{"package.table-left", text::Severity::kWarning,
                      "the line is no row: nothing below it is a table", "", ""},
    text::FindingKind{"package.id-out-of-range", text::Severity::kWarning,
                      "no table has a row of this id", "", ""},
    text::FindingKind{"package.head-field", text::Severity::kWarning,
                      "not all fields of the line can be read", "", ""},
    text::FindingKind{"package.point-row", text::Severity::kWarning, "the line is no row of points",
                      "", ""},
    text::FindingKind{"package.point-count", text::Severity::kWarning,
                      "the points are not as many as was said", "", ""},
    text::FindingKind{"package.wire-model", text::Severity::kWarning,
                      "the line names no wire model", "", ""},
    text::FindingKind{"package.wire-diameter", text::Severity::kWarning,
                      "the line has no wire's diameter", "", ""},
    text::FindingKind{"package.wire-polyline", text::Severity::kWarning,
                      "no polyline follows the wire's line", "", ""},
    text::FindingKind{"package.cut-short", text::Severity::kError,
                      "the file ends inside a block or wire", "", ""},
    text::FindingKind{"package.report-tag", text::Severity::kWarning,
                      "no report has lines of this tag: the rest is not read", "", ""},
    text::FindingKind{"package.report-row", text::Severity::kWarning,
                      "the row has not a cell for each column", "", ""},
    text::FindingKind{"package.report-unit", text::Severity::kWarning,
                      "no length unit is named: micrometres are taken", "", ""},
};
static_assert(kFindingKinds.size() == static_cast<std::size_t>(Finding::kCount));

inline const text::FindingKind& rowOf(Finding finding) {
    return kFindingKinds[static_cast<std::size_t>(finding)];
}

}  // namespace kvocaeio::package
