/// The report of a design's layers: how high its substrate and die are, and where its bodies lie.
#include "package/layer_report.h"

#include <array>
#include <string_view>

#include "package/report_rows.h"
#include "package/words.h"
#include "text/scan.h"

namespace kvocaeio::package {

namespace {

// In the order of `kLayerColumns`.
enum LayerColumn : std::size_t { kSort, kSubclass, kLayerType, kMaterial, kThickness };

constexpr std::array kLayerColumns{
    "LAYER_SORT", "LAYER_SUBCLASS", "LAYER_TYPE", "LAYER_MATERIAL", "LAYER_THICKNESS",
};

using LayerRows = ReportRows<kLayerColumns.size()>;

struct Heights {
    double substrate = 0.0;
    double die = 0.0;
};

// What the reader does not look at: which unit it is, and whether the number is one.
void noteThickness(const LayerRows& rows, std::size_t row, std::string_view number,
                   std::string_view unit) {
    text::Scan scan(number);
    double value = 0.0;
    std::string_view rest;
    if (!scan.real(value) || scan.word(rest))
        rows.note(Finding::kCellNotNumber, row, kThickness);
    else if (value != 0.0 && !equalsInAnyCase(unit, "MIL") && !equalsInAnyCase(unit, "MILS"))
        rows.note(Finding::kThicknessUnit, row, kThickness, unit);
}

// Adds the thickness of a row to a height. False for a cell that is not a number and a unit; which
// unit is not looked at.
bool addThickness(const LayerRows& rows, std::size_t row, double& height) {
    text::Scan scan(rows.cell(row, kThickness));
    std::string_view number;
    std::string_view unit;
    if (!scan.word(number) || !scan.word(unit)) {
        if (!number.empty() || !equalsInAnyCase(rows.cell(row, kLayerType), "SURFACE"))
            rows.note(Finding::kThickness, row, kThickness);
        return false;
    }
    if (rows.notes().areHeard())
        noteThickness(rows, row, number, unit);
    height += text::toReal(number);
    return true;
}

// The layers after the one that ends the substrate.
void noteLayersLeft(const LayerRows& rows, std::size_t row) {
    while (++row < rows.count())
        if (equalsInAnyCase(rows.cell(row, kLayerType), "CONDUCTOR"))
            return rows.note(Finding::kLayersLeftOut, row, kSubclass);
}

// The substrate reaches from the first conductor to the second, deliberately not to the last, and
// where that has no thickness to the next layer that has; air directly before it counts, too. The
// layers of a die stand before it.
Heights sumThicknesses(const LayerRows& rows, bool isMcm) {
    Heights heights;
    bool conductorSeen = false;
    bool lastConductor = false;
    for (std::size_t row = 0; row < rows.count(); ++row) {
        const std::string_view type = rows.cell(row, kLayerType);
        const bool isConductor = equalsInAnyCase(type, "CONDUCTOR");
        if (conductorSeen) {
            lastConductor = lastConductor || isConductor;
        } else if (isConductor) {
            conductorSeen = true;
            if (row > 0 && rows.cell(row - 1, kMaterial) == "AIR")
                addThickness(rows, row - 1, heights.substrate);
        } else if (isMcm && equalsInAnyCase(type, "DIESTACK")) {
            addThickness(rows, row, heights.die);
        }
        if (conductorSeen && addThickness(rows, row, heights.substrate) && lastConductor) {
            if (rows.notes().areHeard())
                noteLayersLeft(rows, row);
            break;
        }
    }
    if (!lastConductor)
        rows.notes().header(conductorSeen ? Finding::kConductorSingle : Finding::kConductorMissing,
                            {});
    return heights;
}

}  // namespace

bool readLayerReport(const Report& report, const text::Listener& listener,
                     ComponentList& components) {
    constexpr double kMil = 0.0254;
    const ReportNotes notes(report, listener);
    if (report.jobCells.size() < 2)
        notes.job(Finding::kLayerJobLine, {});
    const bool isMcm = isDesignOf(report, ".mcm");
    const LayerRows rows(report, kLayerColumns, notes);
    if (!rows.hasAllColumns())
        return false;
    Heights heights = sumThicknesses(rows, isMcm);
    heights.substrate *= kMil;
    heights.die *= kMil;
    for (std::size_t i = 0; i < components.size(); ++i) {
        ComponentShape& body = components.shape(i);
        if (body.type == ComponentType::kSubstrate) {
            body.center[2] = heights.substrate * 0.5;
            body.size[2] = heights.substrate;
        } else if (body.type == ComponentType::kDie && isMcm) {
            if (heights.die == 0.0)
                notes.header(Finding::kDieWithoutHeight, {});
            body.center[2] = heights.die * 0.5 + heights.substrate;
            body.size[2] = heights.die;
        } else {
            body.center[2] += heights.substrate;
        }
    }
    return true;
}

}  // namespace kvocaeio::package
