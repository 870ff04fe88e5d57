/// What the reader notices beside the cards that it stores.
#pragma once

#include <array>
#include <cstddef>

#include "text/findings.h"

namespace kvocaeio::nastran {

enum class Finding : unsigned char {
    // Lines
    kLineCut,
    kLineHidden,
    kByteOrderMark,
    // Lines that are no card, and cards by another name
    kCardUnknown,
    kElementUnknown,
    kPropertyUnknown,
    kInclude,
    kReplication,
    kNameLowerCase,
    kNameTorn,
    kNameInside,
    kGridDefaults,
    kAfterEnd,
    // Fields
    kFreeField,
    kLargeField,
    kTab,
    kExponentTorn,
    kSignTorn,
    kExponentD,
    kFieldStale,
    kFieldMisread,
    kCoordinateSystem,
    // Continuations
    kHexaNodeLost,
    kContinuationMisread,
    kContinuationMissing,
    kContinuationComment,
    kCardSwallowed,
    kContinuationPassed,
    kMidsideNodes,
    kNodeMissing,
    // Elements and properties
    kShellEmpty,
    kOidDropped,
    kOidTwice,
    kPropertyFraction,
    kPropertyNoNumber,
    kPropertyDropped,
    kMaterialUncounted,
    // Tables
    kRowsEmpty,
    kNodeUndefined,
    kNoNodes,
    kNoElements,
    kCount
};

/// In the order of `Finding`.
extern const std::array<text::FindingKind, static_cast<std::size_t>(Finding::kCount)> kFindingKinds;

inline const text::FindingKind& rowOf(Finding finding) {
    return kFindingKinds[static_cast<std::size_t>(finding)];
}

}  // namespace kvocaeio::nastran
