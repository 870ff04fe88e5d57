/// What an import notices in a neutral file beside its content.
#pragma once

#include <array>
#include <cstddef>

#include "text/findings.h"

namespace kvocaeio::patran {

enum class Finding : std::size_t { kLineCut, kPacketSkipped, kPacketNotCounted };

/// A row for each `Finding`, in the same order.
inline constexpr std::array kFindingKinds{
    text::FindingKind{"patran.line-cut", text::Severity::kWarning,
                      "the line is too long and continues as another card", "", ""},
    text::FindingKind{"patran.packet-skipped", text::Severity::kNote,
                      "packets of this type are skipped", "", ""},
    text::FindingKind{"patran.packet-not-counted", text::Severity::kWarning,
                      "the summary counts no more such packets; the data cards are read as headers",
                      "", ""},
};
static_assert(kFindingKinds.size() == static_cast<std::size_t>(Finding::kPacketNotCounted) + 1);

inline const text::FindingKind& rowOf(Finding finding) {
    return kFindingKinds[static_cast<std::size_t>(finding)];
}

}  // namespace kvocaeio::patran
