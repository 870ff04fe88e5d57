/// What an import notices in a neutral file beside its content.
#pragma once

#include <array>
#include <cstddef>

#include "text/findings.h"

namespace kvocaeio::patran {

enum class Finding : std::size_t {
    // Of lines and fields.
    kLineCut,
    kByteOrderMark,
    kCommentAsCard,
    kCardAsHeader,
    kCardMissing,
    kHeaderRepeated,
    kHeaderFieldKept,
    kCardCountLow,
    kNumberUnreadable,
    kNumberTorn,
    kExponentTorn,
    kCoordinateMissing,
    // Of the order of packets.
    kPacketSkipped,
    kPacketUnknown,
    kPacketBeforeSummary,
    kPacketNotCounted,
    kSummaryMissing,
    kSummaryRepeated,
    kCountNegative,
    kFewerThanCounted,
    kFewerProperties,
    kLastLineRepeated,
    kEndMissing,
    kContentAfterEnd,
    kImportAppended,
    // Of nodes and elements.
    kNodeRepeated,
    kNodeOutsideMap,
    kNodeIdZero,
    kNodeUndefined,
    kNodesDropped,
    kShapeUnknown,
    // Of properties.
    kPropertyHeaderDiffers,
    kPropertyIdOutside,
    kPropertyRepeated,
    kPropertyWithoutType,
    kPropertyMissing,
    kValueUnreadable,
    kCount,
};

/// In the order of `Finding`.
extern const std::array<text::FindingKind, static_cast<std::size_t>(Finding::kCount)> kFindingKinds;

inline const text::FindingKind& rowOf(Finding finding) {
    return kFindingKinds[static_cast<std::size_t>(finding)];
}

}  // namespace kvocaeio::patran
