/// What the tidy step tells of files, whatever their format.
#pragma once

#include <array>
#include <cstddef>

#include "text/findings.h"

namespace kvocaeio::tidy {

enum class Finding : std::size_t {
    kFormatUnknown,
    kFormatNotRead,
    kOutputFailed,
    kOutputIsInput,
    kIncluded,
    kIncludeOutside,
    kIncludeCase,
    kIncludeMissing,
    kIncludeNoFile,
    kIncludeFailed,
    kIncludeCycle,
    kIncludeDeep,
    kIncludeLarge,
    kLineLong,
    kReturnsAlone,
    kCount
};

extern const std::array<text::FindingKind, static_cast<std::size_t>(Finding::kCount)> kFindingKinds;

inline const text::FindingKind& rowOf(Finding finding) {
    return kFindingKinds[static_cast<std::size_t>(finding)];
}

}  // namespace kvocaeio::tidy
