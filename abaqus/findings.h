/// What an import and a normalisation can notice beside a deck's content.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "text/findings.h"

namespace kvocaeio::abaqus {

enum class Finding : unsigned char {
    // Lines and keywords.
    kLineCut,
    kNulCharacter,
    kByteOrderMark,
    kKeywordHidden,
    kEncoding,
    kLineOutside,
    kKeywordPassedOver,
    kKeywordUnknown,
    kKeywordLost,
    kInclude,
    kPart,
    kGeneration,
    kCoordinateSystem,
    kInputFile,
    kKeywordContinued,
    kKeywordIndented,
    kParameterIgnored,
    kParameterMisread,
    kNameCut,
    kSurfaceEndsReading,
    kShellEndsReading,
    // Data lines.
    kNodeWithoutNumber,
    kNodeCutShort,
    kExponentTorn,
    kCoordinateMissing,
    kFieldsIgnored,
    kOidOutOfRange,
    kElementTypeUnknown,
    kElementTypeFlat,
    kElementTypeOther,
    kElementFieldStale,
    kFieldTorn,
    kElementRunsOn,
    kElementIncomplete,
    kElementNodesIgnored,
    kSetInternal,
    kSetMemberName,
    kRangeUnread,
    kRangeReplaced,
    kRangeStep,
    kRangeBackwards,
    kLoadBySet,
    kThicknessUnread,
    kThicknessReplaced,
    kThicknessMissing,
    // From here on what concerns no line: the finished raw tables, then the normalisation.
    kNodeUndefined,
    kNodeRepeated,
    kNodeConflict,
    kElementRepeated,
    kElementConflict,
    kNothingToSort,
    kSectionReduced,
    kSectionsMerged,
    kSectionSplit,
    kElementInNoSet,
    kElementInTwoSets,
    kRangeRowsBlank,
    kRangeElementUnknown,
    kSectionMisnamed,
    kSetShifted,
    kSetShadowsBlock,
    kSurfaceSetUnknown,
    kFaceLabel,
    kFaceMissing,
    kFaceElementUnknown,
    kFaceOfShell,
    kFaceRepeated,
    kTooManyRows,
};

inline constexpr std::size_t kFindingNum = static_cast<std::size_t>(Finding::kTooManyRows) + 1;

/// In the order of `Finding`.
extern const std::array<text::FindingKind, kFindingNum> kFindingKinds;

inline const text::FindingKind& rowOf(Finding finding) {
    return kFindingKinds[static_cast<std::size_t>(finding)];
}

/// The name of a set as a finding says it.
constexpr std::string_view nameOrNone(std::string_view name) {
    return name.empty() ? "(no name)" : name;
}

}  // namespace kvocaeio::abaqus
