/// The finished sections of a split, compared with the section and the sets that they come from.
#include "abaqus/split_notes.h"

#include <cstdint>
#include <exception>

#include "abaqus/element_sets.h"
#include "text/place_text.h"

namespace kvocaeio::abaqus {

namespace {

class SplitNotes {
  public:
    SplitNotes(const ElemSection& source, const OidMap<int>& rowOfOid,
               const text::Listener& listener)
        : source_(source), rowOfOid_(rowOfOid), listener_(listener), isHeld_(source.ids.size()) {}

    void section(const ElemSection& made, const ElsetSection& set) {
        if (made.elset != set.name)
            noteNamed(Finding::kSectionMisnamed, set.name);
        std::int64_t id = set.genStart;
        for (std::size_t row = 0; !source_.ids.empty() && id <= set.genEnd; id += stepOf(set))
            element(made.ids[row++], static_cast<int>(id));
        if (stepOf(set) > 1 && set.genStart < set.genEnd)
            noteNamed(Finding::kRangeRowsBlank, set.name);
    }

    void finish() {
        for (std::size_t row = 0; row < isHeld_.size(); ++row)
            if (!isHeld_[row])
                noteElement(Finding::kElementInNoSet, source_.ids[row]);
        if (isWhole_)
            noteNamed(Finding::kSectionSplit, source_.elset);
    }

  private:
    // `oid` is that of the element which the new section has for `wanted`.
    void element(int oid, int wanted) {
        if (oid != wanted)
            return noteElement(Finding::kRangeElementUnknown, wanted);
        const auto row = static_cast<std::size_t>(rowOfOid_.find(oid));
        if (isHeld_[row])
            noteElement(Finding::kElementInTwoSets, oid);
        isHeld_[row] = true;
    }

    void noteElement(Finding finding, int oid) {
        noteText(listener_.findings, finding, "element ", oid);
        isWhole_ = false;
    }
    void noteNamed(Finding finding, std::string_view name) {
        listener_.note(finding, nameOrNone(name), nameOrNone(name));
        isWhole_ = false;
    }

    const ElemSection& source_;
    const OidMap<int>& rowOfOid_;
    const text::Listener& listener_;
    std::vector<bool> isHeld_;
    bool isWhole_ = true;
};

}  // namespace

void noteSplit(const std::vector<const ElsetSection*>& sets, const std::vector<ElemSection>& made,
               const ElemSection& source, const OidMap<int>& rowOfOid,
               const text::Listener& listener) noexcept {
    if (listener.findings == nullptr)
        return;
    try {
        SplitNotes notes(source, rowOfOid, listener);
        for (std::size_t k = 0; k < sets.size(); ++k)
            notes.section(made[k], *sets[k]);
        notes.finish();
    } catch (const std::exception&) {  // the split is made all the same
        listener.note(text::FileFinding::kReportIncomplete, {});
    }
}

}  // namespace kvocaeio::abaqus
