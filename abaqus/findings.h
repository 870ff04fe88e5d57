/// What an import and a normalisation can notice beside a deck's content.
#pragma once

#include <array>
#include <cstddef>

#include "text/findings.h"

namespace kvocaeio::abaqus {

enum class Finding {
    kLineCut,
    kKeywordUnknown,
    kElementTypeUnknown,
    kSetInternal,
    kLineWithoutEntry,
    kFieldUnread,
    kElementIncomplete,
    kPassEnded,
    // From here on those of the normalisation, which concern no line.
    kSetRepeated,
    kSectionLeftOut,
    kSectionsMerged,
    kSectionSplit,
    kLoadWithoutFace,
    kSurfaceItemUnknown,
};

/// In the order of `Finding`.
inline constexpr std::array kFindingKinds{
    text::FindingKind{"abaqus.line-cut", "the line is too long: its rest is read as a new line"},
    text::FindingKind{"abaqus.keyword-unknown", "the keyword is unknown"},
    text::FindingKind{"abaqus.element-type-unknown", "the element type is unknown"},
    text::FindingKind{"abaqus.set-internal", "the set is flagged INTERNAL"},
    text::FindingKind{"abaqus.line-without-entry", "nothing stands on the line"},
    text::FindingKind{"abaqus.field-unread", "no number: an older value or zero stands for it"},
    text::FindingKind{"abaqus.element-incomplete", "the deck ends inside an element"},
    text::FindingKind{"abaqus.pass-ended", "no TYPE=ELEMENT, no MATERIAL: the rest is not read"},
    text::FindingKind{"abaqus.set-repeated", "the set is joined to an earlier one of its name"},
    text::FindingKind{"abaqus.section-left-out", "elements of unknown type are left out"},
    text::FindingKind{"abaqus.sections-merged", "sections of one set name become one section"},
    text::FindingKind{"abaqus.section-split", "generated sets take the place of the section"},
    text::FindingKind{"abaqus.load-without-face", "the load names no face of an element"},
    text::FindingKind{"abaqus.surface-item-unknown", "the surface names no set, or no face"},
};
static_assert(kFindingKinds.size() == static_cast<std::size_t>(Finding::kSurfaceItemUnknown) + 1);

}  // namespace kvocaeio::abaqus
