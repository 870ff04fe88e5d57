/// Faces that are missing, wrong or named more than once.
#include "abaqus/face_notes.h"

#include <algorithm>
#include <exception>

#include "text/place_text.h"

namespace kvocaeio::abaqus {

FaceNotes::FaceNotes(const RawModel& raw, const text::Listener& listener) noexcept
    : raw_(raw), listener_(listener) {
    if (!areNoted())
        return;
    try {
        named_.resize(raw.elemSections.size());
        for (const ElemSection& section : raw.elemSections)
            blockNames_.push_back(section.elset);
        std::ranges::sort(blockNames_);
    } catch (const std::exception&) {
        listener.note(text::FileFinding::kReportIncomplete, {});
    }
}

void FaceNotes::label(std::string_view item, std::string_view label) const {
    noteText(listener_.findings, Finding::kFaceLabel, label.empty() ? "(none)" : label, " of ",
             item);
}

void FaceNotes::element(std::int64_t oid, int face, bool hasFace) {
    const text::PlaceText what("face ", face, " of element ", oid);
    const ElemLocation location = raw_.elemOidMap.covers(static_cast<int>(oid))
                                      ? raw_.elemOidMap.find(static_cast<int>(oid))
                                      : ElemLocation();
    const ElemSection& section = raw_.elemSections[location.section];
    if (location.row >= section.ids.size() || section.ids[location.row] != oid)
        listener_.note(Finding::kFaceElementUnknown, what);
    else if (!hasFace)
        listener_.note(Finding::kFaceMissing, what);
    else if (section.geometryType == GeometryType::kShell)
        listener_.note(Finding::kFaceOfShell, what);
    else
        repeat(location, face, what);
}

void FaceNotes::repeat(ElemLocation location, int face, std::string_view what) {
    if (named_.empty())
        return;
    auto& named = named_[location.section];
    try {
        named.resize(raw_.elemSections[location.section].ids.size());
    } catch (const std::exception&) {
        named_.clear();
        return listener_.note(text::FileFinding::kReportIncomplete, {});
    }
    const auto bit = static_cast<std::uint8_t>(1U << face);
    if ((named[location.row] & bit) != 0)
        listener_.note(Finding::kFaceRepeated, what);
    named[location.row] |= bit;
}

void FaceNotes::set(std::span<const IdRun> elements) const {
    if (!areNoted())
        return;
    const auto size = static_cast<std::int64_t>(raw_.elemOidMap.size());
    for (const IdRun& run : elements) {
        if (run.first < 0)
            noteText(listener_.findings, Finding::kFaceElementUnknown, "element ", run.first);
        if (run.last >= size)
            noteText(listener_.findings, Finding::kFaceElementUnknown, "element ", run.last);
    }
}

void FaceNotes::repeatedSet(std::string_view name, int face) const {
    noteText(listener_.findings, Finding::kFaceRepeated, "face ", face, " of set ", name);
}

void FaceNotes::surfaceSet(std::string_view name, bool isKnown) const {
    if (!isKnown)
        listener_.note(Finding::kSurfaceSetUnknown, name);
    else if (std::ranges::binary_search(blockNames_, name))
        listener_.note(Finding::kSetShadowsBlock, name, name);
}

}  // namespace kvocaeio::abaqus
