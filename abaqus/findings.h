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
    text::FindingKind{"abaqus.line-cut", text::Severity::kWarning,
                      "the line is too long: its rest is read as a new line", "", ""},
    text::FindingKind{"abaqus.keyword-unknown", text::Severity::kNote, "the keyword is unknown", "",
                      ""},
    text::FindingKind{"abaqus.element-type-unknown", text::Severity::kError,
                      "the element type is unknown", "", ""},
    text::FindingKind{"abaqus.set-internal", text::Severity::kNote, "the set is flagged INTERNAL",
                      "", ""},
    text::FindingKind{"abaqus.line-without-entry", text::Severity::kWarning,
                      "nothing stands on the line", "", ""},
    text::FindingKind{"abaqus.field-unread", text::Severity::kWarning,
                      "no number: an older value or zero stands for it", "", ""},
    text::FindingKind{"abaqus.element-incomplete", text::Severity::kWarning,
                      "the deck ends inside an element", "", ""},
    text::FindingKind{"abaqus.pass-ended", text::Severity::kError,
                      "no TYPE=ELEMENT, no MATERIAL: the rest is not read", "", ""},
    text::FindingKind{"abaqus.set-repeated", text::Severity::kWarning,
                      "the set is joined to an earlier one of its name", "", ""},
    text::FindingKind{"abaqus.section-left-out", text::Severity::kWarning,
                      "elements of unknown type are left out", "", ""},
    text::FindingKind{"abaqus.sections-merged", text::Severity::kWarning,
                      "sections of one set name become one section", "", ""},
    text::FindingKind{"abaqus.section-split", text::Severity::kWarning,
                      "generated sets take the place of the section", "", ""},
    text::FindingKind{"abaqus.load-without-face", text::Severity::kWarning,
                      "the load names no face of an element", "", ""},
    text::FindingKind{"abaqus.surface-item-unknown", text::Severity::kWarning,
                      "the surface names no set, or no face", "", ""},
};
static_assert(kFindingKinds.size() == static_cast<std::size_t>(Finding::kSurfaceItemUnknown) + 1);

inline const text::FindingKind& rowOf(Finding finding) {
    return kFindingKinds[static_cast<std::size_t>(finding)];
}

}  // namespace kvocaeio::abaqus
