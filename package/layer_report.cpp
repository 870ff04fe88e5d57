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

// Adds a thickness to a height. False for a cell that is not a number and a unit; which unit is not
// looked at.
bool addThickness(std::string_view cell, double& height) {
    text::Scan scan(cell);
    std::string_view number;
    std::string_view unit;
    if (!scan.word(number) || !scan.word(unit))
        return false;
    height += text::toReal(number);
    return true;
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
                addThickness(rows.cell(row - 1, kThickness), heights.substrate);
        } else if (isMcm && equalsInAnyCase(type, "DIESTACK")) {
            addThickness(rows.cell(row, kThickness), heights.die);
        }
        if (conductorSeen && addThickness(rows.cell(row, kThickness), heights.substrate) &&
            lastConductor)
            break;
    }
    return heights;
}

}  // namespace

bool readLayerReport(const Report& report, ComponentList& components) {
    constexpr double kMil = 0.0254;
    const bool isMcm = isDesignOf(report, ".mcm");
    const LayerRows rows(report, kLayerColumns);
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
            body.center[2] = heights.die * 0.5 + heights.substrate;
            body.size[2] = heights.die;
        } else {
            body.center[2] += heights.substrate;
        }
    }
    return true;
}

}  // namespace kvocaeio::package
