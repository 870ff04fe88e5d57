/// What the reader notices beside the cards that it stores.
#pragma once

#include <array>
#include <cstddef>

#include "text/findings.h"

namespace kvocaeio::nastran {

enum class Finding : std::size_t { kLineCut, kCardUnknown, kFieldStale, kCount };

inline constexpr std::array<text::FindingKind, static_cast<std::size_t>(Finding::kCount)>
    kFindingKinds{{
        {"nastran.line-cut", text::Severity::kWarning,
         "a line has more than 254 characters; the rest is read as a new line", "", ""},
        {"nastran.card-unknown", text::Severity::kNote,
         "no name of a card that is read stands in the line", "", ""},
        {"nastran.field-stale", text::Severity::kWarning,
         "a field of the card that ends here cannot be read and keeps an earlier card's value", "",
         ""},
    }};
static_assert(!kFindingKinds.back().code.empty());

inline const text::FindingKind& rowOf(Finding finding) {
    return kFindingKinds[static_cast<std::size_t>(finding)];
}

}  // namespace kvocaeio::nastran
