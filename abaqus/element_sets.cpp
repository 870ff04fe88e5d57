/// Expansion of `*ELSET` blocks, and the split of a lone section by the generated ones.
#include "abaqus/element_sets.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <stdexcept>
#include <utility>

#include "abaqus/split_notes.h"
#include "text/scan.h"

namespace kvocaeio::abaqus {

namespace {

bool isGenerated(const ElsetSection& set) {
    return set.parameter == "GENERATE";
}

// Numbers at equal distances, as most sets list them, grow into one run.
void appendId(ElemList& list, int id) {
    if (!list.empty()) {
        IdRun& run = list.back();
        const std::int64_t distance = std::int64_t{id} - run.last;
        const bool isSingle = run.first == run.last;
        if (distance == run.step || (isSingle && distance > 0 && std::in_range<int>(distance))) {
            run.step = static_cast<int>(distance);
            run.last = id;
            return;
        }
    }
    list.push_back({id, id, 1});
}

void appendMembers(ElemList& list, const ElsetSection& set) {
    if (!isGenerated(set)) {
        for (const std::string& member : set.members)
            appendId(list, text::toInteger(member));
    } else if (set.genStart <= set.genEnd) {
        const std::int64_t span = std::int64_t{set.genEnd} - set.genStart;
        const auto beyond = static_cast<int>(span % stepOf(set));
        list.push_back({set.genStart, set.genEnd - beyond, stepOf(set)});
    }
}

// Number of ids in the range, whatever the step; the rows that the step leaves over stay blank.
std::size_t rowsOf(const ElsetSection& set) {
    const std::int64_t count = std::int64_t{set.genEnd} - set.genStart + 1;
    if (count < 0 || !std::in_range<int>(count))
        throw std::length_error("vector<T> too long");
    return static_cast<std::size_t>(count);
}

// Fills a section whose tables have room already. An id that the source does not hold gives its
// first element; a source without any element gives nothing.
void fillFromSource(ElemSection& section, const ElsetSection& set, const ElemSection& source,
                    const OidMap<int>& rowOfOid) {
    const auto width = static_cast<std::size_t>(source.nodesPerElem);
    const std::size_t rows = rowsOf(set);
    if (!source.ids.empty()) {
        for (std::int64_t id = set.genStart; id <= set.genEnd; id += stepOf(set)) {
            const auto row = static_cast<std::size_t>(rowOfOid.find(static_cast<int>(id)));
            const int* const nodes = source.nodes.data() + row * width;
            section.ids.push_back(source.ids[row]);
            section.nodes.insert(section.nodes.end(), nodes, nodes + width);
        }
    }
    section.ids.resize(rows);
    section.nodes.resize(rows * width);
}

}  // namespace

void ExpandElsets(const std::vector<ElsetSection>& elsets,
                  std::map<std::string, int>& elsetIndexMap, std::vector<ElemList>& elsetElems,
                  const text::Listener& listener) {
    for (std::size_t i = 0; i < elsets.size(); ++i) {
        // The value is the record's place, which runs ahead of the lists once a name is repeated.
        const auto [known, isNew] = elsetIndexMap.try_emplace(elsets[i].name, static_cast<int>(i));
        const auto place = static_cast<std::size_t>(known->second);
        if (isNew) {
            if (place != elsetElems.size())
                listener.note(Finding::kSetShifted, nameOrNone(elsets[i].name),
                              nameOrNone(elsets[i].name));
            appendMembers(elsetElems.emplace_back(), elsets[i]);
        } else if (place < elsetElems.size()) {
            appendMembers(elsetElems[place], elsets[i]);
        }
    }
}

void SplitSectionByGeneratedSets(const std::vector<ElsetSection>& elsets,
                                 std::vector<ElemSection>& solidSections,
                                 std::vector<ElemSection>& shellElemSections,
                                 const text::Listener& listener) {
    if (solidSections.size() != 1 && shellElemSections.size() != 1)
        return;
    std::vector<ElemSection>& list = solidSections.size() == 1 ? solidSections : shellElemSections;
    const ElemSection& source = list.front();
    std::vector<const ElsetSection*> generated;
    for (const ElsetSection& set : elsets) {
        if (!isGenerated(set))
            continue;
        if (!listener.isQuiet)
            std::printf("generate found\n  start ID = %d , End ID = %d\n", set.genStart,
                        set.genEnd);
        generated.push_back(&set);
    }
    if (generated.empty())
        return;

    // Memory for all rows is asked for before the first is written: a range too large for it fails
    // here, and not when half of the machine's memory is filled.
    std::vector<ElemSection> sections(generated.size());
    for (std::size_t k = 0; k < sections.size(); ++k) {
        // The name is that of the k-th set of all, be it generated or not.
        sections[k] = {elsets[k].name, "", source.geometryType, source.nodesPerElem, {}, {}};
        const std::size_t rows = rowsOf(*generated[k]);
        sections[k].ids.reserve(rows);
        sections[k].nodes.reserve(rows * static_cast<std::size_t>(source.nodesPerElem));
    }
    OidMap<int> rowOfOid;
    assignRows(rowOfOid, source.ids);
    for (std::size_t k = 0; k < sections.size(); ++k)
        fillFromSource(sections[k], *generated[k], source, rowOfOid);
    noteSplit(generated, sections, source, rowOfOid, listener);
    list = std::move(sections);
}

}  // namespace kvocaeio::abaqus
