/// What is told of the rewriting of an Abaqus deck.
#pragma once

#include <array>
#include <cstddef>

#include "text/findings.h"

namespace kvocaeio::tidy::abaqus {

enum class Finding : std::size_t {
    // What was done.
    kByteOrderMark,
    kBlankLine,
    kTab,
    kLineSplit,
    kCommentInside,
    kKeywordIndented,
    kKeywordContinued,
    kKeywordForm,
    kNumberForm,
    kParameter,
    kPlaced,
    kPartPlaced,
    kPartUnused,
    kSystem,
    kNodesGenerated,
    kElementsGenerated,
    kTypeChanged,
    kElementLong,
    kSetGenerated,
    kSetNested,
    kSetInternal,
    kSetRepeated,
    kSetOfBlock,
    kSetMembers,
    kNameChanged,
    kSurfaceItem,
    kSurfaceRepeated,
    kSurfaceCombined,
    kSurfaceOutside,
    kLoadOnSet,
    kLoadOnSurface,
    kShellSection,
    kKeywordUnread,
    // What could not be done.
    kMeshElsewhere,
    kTypeUnread,
    kSurfaceUnread,
    kFaceUnread,
    kFaceMissing,
    kLoadUnread,
    kSetMissing,
    kSurfaceMissing,
    kNodeRepeated,
    kElementRepeated,
    kThicknessUnread,
    kNumberInvalid,
    kElementTwice,
    kElementIncomplete,
    kPartMissing,
    kInstanceUnread,
    kStatementUnread,
    kGenerationInvalid,
    kTooMuch,
    kCount
};

extern const std::array<text::FindingKind, static_cast<std::size_t>(Finding::kCount)> kFindingKinds;

inline const text::FindingKind& rowOf(Finding finding) {
    return kFindingKinds[static_cast<std::size_t>(finding)];
}

}  // namespace kvocaeio::tidy::abaqus
