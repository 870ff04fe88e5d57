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

using SymbolRows = ReportRows<kSymbolColumns.size()>;

ComponentType typeByRefDes(std::string_view refDes) {
    if (equalsInAnyCase(refDes, "DIE"))
        return ComponentType::kDie;
    if (equalsInAnyCase(refDes, "PBGA") || equalsInAnyCase(refDes, "BGA"))
        return ComponentType::kSubstrate;
    return ComponentType::kNone;
}

// Index of the first body of that kind; the list's size without one.
std::size_t findBodyOf(const ComponentList& components, ComponentType type) {
    std::size_t body = 0;
    while (body < components.size() && components.shape(body).type != type)
        ++body;
    return body;
}

// The first of the four columns that a body of the kind has its place from.
std::size_t boxOf(ComponentType type) {
    return type == ComponentType::kSubstrate ? kRectangle : kSymbolBox;
}

ComponentRecord bodyOf(const SymbolRows& rows, std::size_t row, ComponentType type,
                       double unitScale) {
    ComponentRecord record;
    record.type = type;
    record.name = type == ComponentType::kSubstrate ? "SUBSTRATE" : rows.cell(row, kSymbolName);
    const auto coordinate = [&](std::size_t i) {
        return text::toReal(rows.cell(row, boxOf(type) + i));
    };
    setExtent(record, 0, coordinate(0), coordinate(2), unitScale);
    setExtent(record, 1, coordinate(1), coordinate(3), unitScale);
    return record;
}

// A row of another reference than those of bodies. Most are parts that are none, but "DIE1" is
// meant for one.
void noteNoBody(const SymbolRows& rows, std::size_t row) {
    const std::string_view refDes = rows.cell(row, kRefDes);
    for (const std::string_view word : {"DIE", "BGA", "PBGA"})
        if (equalsInAnyCase(refDes.substr(0, word.size()), word))
            rows.note(Finding::kRefDesLonger, row, kRefDes, refDes);
}

// A further row of a kind that has its body. There is one for each graphic of a die, so only one
// that says something else is lost.
void noteFurther(const SymbolRows& rows, std::size_t row, const ComponentRecord& record,
                 const ComponentList& components, std::size_t body) {
    const ComponentShape& first = components.shape(body);
    if (record.type == ComponentType::kDie &&
        (record.center != first.center || record.size != first.size ||
         record.name != components.name(body)))
        rows.notes().row(Finding::kDieLeft, row, record.name);
}

void noteMissing(const ReportNotes& notes, const ComponentList& components, bool isSip) {
    if (findBodyOf(components, ComponentType::kSubstrate) == components.size())
        notes.header(Finding::kBodyMissing, {}, "substrate");
    if (!isSip && findBodyOf(components, ComponentType::kDie) == components.size())
        notes.header(Finding::kBodyMissing, {}, "die");
}

}  // namespace

bool readSymbolReport(const Report& report, const text::Listener& listener, double unitScale,
                      ComponentList& components) {
    const bool isSip = isDesignOf(report, ".sip");
    const ReportNotes notes(report, listener);
    const SymbolRows rows(report, kSymbolColumns, notes);
    if (!rows.hasAllColumns())
        return false;
    for (std::size_t row = 0; row < rows.count(); ++row) {
        const ComponentType type = typeByRefDes(rows.cell(row, kRefDes));
        const bool isSubstrate = type == ComponentType::kSubstrate;
        if (type == ComponentType::kNone) {
            if (notes.areHeard())
                noteNoBody(rows, row);
            continue;
        }
        if ((isSip && !isSubstrate) ||
            (isSubstrate && !equalsInAnyCase(rows.cell(row, kGraphicName), "RECTANGLE")))
            continue;
        const std::size_t body = findBodyOf(components, type);
        if (body != components.size()) {
            if (notes.areHeard())
                noteFurther(rows, row, bodyOf(rows, row, type, unitScale), components, body);
            continue;
        }
        components.append(bodyOf(rows, row, type, unitScale));
        if (notes.areHeard())
            noteBox(rows, row, boxOf(type), 2, bodyOf(rows, row, type, unitScale));
    }
    if (notes.areHeard())
        noteMissing(notes, components, isSip);
    return true;
}

}  // namespace kvocaeio::package
