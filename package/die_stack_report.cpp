/// The report of a stacked design's dies, interposers and spacers.
#include "package/die_stack_report.h"

#include <array>
#include <string_view>

#include "package/report_rows.h"
#include "package/words.h"
#include "text/scan.h"

namespace kvocaeio::package {

namespace {

// In the order of `kDieColumns`.
enum DieColumn : std::size_t { kMemberType, kMemberName, kX1, kY1, kX2, kY2, kBottom, kTop };

constexpr std::array kDieColumns{
    "DSA_MEMBER_TYPE", "DSA_MEMBER_NAME", "DSA_EXTENTS_X1",       "DSA_EXTENTS_Y1",
    "DSA_EXTENTS_X2",  "DSA_EXTENTS_Y2",  "DSA_STACK_HEIGHT_MIN", "DSA_STACK_HEIGHT_MAX",
};

ComponentType typeByMember(std::string_view member) {
    if (equalsInAnyCase(member, "DIE"))
        return ComponentType::kDie;
    if (equalsInAnyCase(member, "INTERPOSER"))
        return ComponentType::kInterposer;
    if (equalsInAnyCase(member, "SPACER"))
        return ComponentType::kSpacer;
    return ComponentType::kNone;
}

}  // namespace

bool readDieStackReport(const Report& report, const text::Listener& listener, double unitScale,
                        ComponentList& components) {
    const ReportNotes notes(report, listener);
    const ReportRows rows(report, kDieColumns, notes);
    const std::size_t bodiesBefore = components.size();
    if (!rows.hasAllColumns())
        return false;
    for (std::size_t row = 0; row < rows.count(); ++row) {
        ComponentRecord record;
        record.type = typeByMember(rows.cell(row, kMemberType));
        if (record.type == ComponentType::kNone) {
            rows.note(Finding::kMemberUnknown, row, kMemberType, rows.cell(row, kMemberType));
            continue;
        }
        record.name = rows.cell(row, kMemberName);
        const auto coordinate = [&](DieColumn column) {
            return text::toReal(rows.cell(row, column));
        };
        setExtent(record, 0, coordinate(kX1), coordinate(kX2), unitScale);
        setExtent(record, 1, coordinate(kY1), coordinate(kY2), unitScale);
        setExtent(record, 2, coordinate(kBottom), coordinate(kTop), unitScale);
        components.append(record);
        if (notes.areHeard())
            noteBox(rows, row, kX1, 3, record);
    }
    if (components.size() == bodiesBefore)
        notes.header(Finding::kBodyMissing, {}, "members of the stack");
    return true;
}

}  // namespace kvocaeio::package
