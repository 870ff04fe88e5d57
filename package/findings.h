/// What imports of packages notice beside the content.
#pragma once

#include <array>
#include <cstddef>

#include "text/findings.h"

namespace kvocaeio::package {

enum class Finding : std::size_t {
    // Lines.
    kLineCut,
    kLineNul,
    kWordInLine,
    // The unit of a 3DI file.
    kUnitMissing,
    kUnitUnknown,
    kUnitInWord,
    // Its tables.
    kTableMissing,
    kTableUnknown,
    kTableNotOpened,
    kTableEnded,
    kTableLeft,
    kTableReplaced,
    kRowSkipped,
    kRowIncomplete,
    kIdOutOfRange,
    kIdRepeated,
    kColorValue,
    kWordsDropped,
    kSymbolMissing,
    kOutlineMissing,
    // Its blocks.
    kHeadField,
    kHeadRepeated,
    kHeadAfterPolygon,
    kLineUnknown,
    kNumberTorn,
    kPointRow,
    kPointText,
    kRowTooLong,
    kPointsMissing,
    kPointsLeft,
    kPolygonDropped,
    kCutShort,
    kBlockOfNoKind,
    // Its bodies.
    kColorUnknown,
    kColorUndefined,
    kNameUnknown,
    kNameEmpty,
    kBlockUnclosed,
    kPolygonMissing,
    kExtrusionMissing,
    kSubstrateHeight,
    kSizeNegative,
    kBallMissing,
    kBallHeight,
    kBallAssumed,
    kCapAssumed,
    kNotFinite,
    // Its wires and their models.
    kWireModel,
    kWireDiameter,
    kWirePolyline,
    kWirePoints,
    kWireUnfinished,
    kWireColorUsed,
    kWireColorTaken,
    kWireShort,
    kPolylineLost,
    kModelNumber,
    kModelOfWire,
    kModelIncomplete,
    kProfileUnknown,
    kProfileColorUnknown,
    kProfileColorOther,
    // The reports of a design.
    kReportTag,
    kReportLine,
    kReportRow,
    kReportRest,
    kHeaderLate,
    kHeaderMissing,
    kColumnMissing,
    kColumnRepeated,
    kJobLine,
    kLayerJobLine,
    kReportUnit,
    kDesignUnknown,
    kDesignWithoutBodies,
    kDesignDiffers,
    // Their bodies.
    kCellNotNumber,
    kRefDesLonger,
    kDieLeft,
    kMemberUnknown,
    kBodyMissing,
    kThickness,
    kThicknessUnit,
    kLayersLeftOut,
    kConductorSingle,
    kConductorMissing,
    kDieWithoutHeight,
    kCount,
};

/// In the order of `Finding`.
extern const std::array<text::FindingKind, static_cast<std::size_t>(Finding::kCount)> kFindingKinds;

inline const text::FindingKind& rowOf(Finding finding) {
    return kFindingKinds[static_cast<std::size_t>(finding)];
}

}  // namespace kvocaeio::package
