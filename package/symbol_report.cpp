/// The report of a design's symbols: substrate and die, seen from above.
#include "package/symbol_report.h"

#include <array>
#include <string_view>

#include "package/report_rows.h"
#include "package/words.h"
#include "text/scan.h"

namespace kvocaeio::package {

namespace {

// In the order of `kSymbolColumns`.
enum SymbolColumn : std::size_t {
    kRefDes,
    kSymbolName,
    kSymbolBox,  // x1, y1, x2, y2
    kGraphicName = kSymbolBox + 4,
    kRectangle,  // x1, y1, x2, y2
};

constexpr std::array kSymbolColumns{
    "REFDES",         "SYM_NAME",       "SYM_BOX_X1",        "SYM_BOX_Y1",
    "SYM_BOX_X2",     "SYM_BOX_Y2",     "GRAPHIC_DATA_NAME", "GRAPHIC_DATA_1",
    "GRAPHIC_DATA_2", "GRAPHIC_DATA_3", "GRAPHIC_DATA_4",
};

ComponentType typeByRefDes(std::string_view refDes) {
    if (equalsInAnyCase(refDes, "DIE"))
        return ComponentType::kDie;
    if (equalsInAnyCase(refDes, "PBGA") || equalsInAnyCase(refDes, "BGA"))
        return ComponentType::kSubstrate;
    return ComponentType::kNone;
}

bool holdsBodyOf(const ComponentList& components, ComponentType type) {
    for (std::size_t i = 0; i < components.size(); ++i)
        if (components.shape(i).type == type)
            return true;
    return false;
}

}  // namespace

bool readSymbolReport(const Report& report, double unitScale, ComponentList& components) {
    const bool isSip = isDesignOf(report, ".sip");
    const ReportRows rows(report, kSymbolColumns);
    if (!rows.hasAllColumns())
        return false;
    for (std::size_t row = 0; row < rows.count(); ++row) {
        ComponentRecord record;
        record.type = typeByRefDes(rows.cell(row, kRefDes));
        const bool isSubstrate = record.type == ComponentType::kSubstrate;
        if (record.type == ComponentType::kNone || (isSip && !isSubstrate) ||
            (isSubstrate && !equalsInAnyCase(rows.cell(row, kGraphicName), "RECTANGLE")) ||
            holdsBodyOf(components, record.type))
            continue;
        record.name = isSubstrate ? "SUBSTRATE" : rows.cell(row, kSymbolName);
        const std::size_t box = isSubstrate ? kRectangle : kSymbolBox;
        const auto coordinate = [&](std::size_t i) {
            return text::toReal(rows.cell(row, box + i));
        };
        setExtent(record, 0, coordinate(0), coordinate(2), unitScale);
        setExtent(record, 1, coordinate(1), coordinate(3), unitScale);
        components.append(record);
    }
    return true;
}

}  // namespace kvocaeio::package
