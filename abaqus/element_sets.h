/// Element sets: expanded into lists of element OIDs, and cutting a lone section into several.
#pragma once

#include <algorithm>
#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "abaqus/findings.h"
#include "abaqus/model.h"

namespace kvocaeio::abaqus {

/// Makes each set name its list of element OIDs. A name that is known already gets its members
/// after those it has. Members that are no numbers count as OID 0; names of other sets are not
/// resolved.
void ExpandElsets(const std::vector<ElsetSection>& elsets,
                  std::map<std::string, int>& elsetIndexMap, std::vector<ElemList>& elsetElems,
                  const text::Listener& listener);

/// Where the deck has generated sets and one of the lists, solids first, has exactly one section:
/// replaces it by one section per generated set. Throws `std::length_error` for a set that ends
/// more than one before it starts, or whose range has more ids than int counts; both lists are then
/// as they were, as they are when memory runs out.
void SplitSectionByGeneratedSets(const std::vector<ElsetSection>& elsets,
                                 std::vector<ElemSection>& solidSections,
                                 std::vector<ElemSection>& shellElemSections,
                                 const text::Listener& listener);

/// A walk over the range would not end with a step below 1.
inline int stepOf(const ElsetSection& set) {
    return std::max(set.genStep, 1);
}

/// The list at a value of `elsetIndexMap`; empty where the value lies beyond the lists.
inline std::span<const IdRun> elemsAt(const std::vector<ElemList>& elsetElems, int value) {
    const auto place = static_cast<std::size_t>(value);
    return place < elsetElems.size() ? elsetElems[place] : std::span<const IdRun>();
}

}  // namespace kvocaeio::abaqus
