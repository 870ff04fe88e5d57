/// What the tidy step tells of Nastran decks.
#pragma once

#include <array>
#include <cstddef>

#include "text/findings.h"

namespace kvocaeio::tidy::nastran {

enum class Finding : std::size_t {
    // Done.
    kFreeField,
    kLargeField,
    kTabs,
    kOtherName,
    kByteOrderMark,
    kContinuationElsewhere,
    kReplication,
    kNumberForm,
    kNumberRounded,
    kFrame,
    kHexa,
    kMidSideNodes,
    kWrittenAs,
    kSectionArea,
    kPropertyNumber,
    kNumberLarge,
    kCardLeftOut,
    // Could not be done, and the reader would not hold it either.
    kElementLeftOut,
    kShell,
    kAreaUnknown,
    kValueUnreadable,
    kPropertyTwice,
    kMaterialLarge,
    kOtherModel,
    // Could not be done.
    kIdUnreadable,
    kCoordinateUnreadable,
    kNodeMissing,
    kFrameMissing,
    kFrameWrong,
    kReplicationWrong,
    kIncludeName,
    kNoNumberLeft,
    kNoNodes,
    kNoElements,
    kCount
};

extern const std::array<text::FindingKind, static_cast<std::size_t>(Finding::kCount)> kFindingKinds;

inline const text::FindingKind& rowOf(Finding finding) {
    return kFindingKinds[static_cast<std::size_t>(finding)];
}

}  // namespace kvocaeio::tidy::nastran
