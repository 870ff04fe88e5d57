/// The sorted lists of solid and shell sections, made from the raw ones.
#pragma once

#include <vector>

#include "abaqus/findings.h"
#include "abaqus/model.h"

namespace kvocaeio::abaqus {

/// The raw sections that one sorted section is made of: one, or all of a set name in deck order.
/// The stages first settle these lists; the elements are moved once, when that is done.
using SectionSources = std::vector<const ElemSection*>;

/// Lists the solids and the shells of the deck apart, in deck order. Says on standard output what
/// sections it meets, unless the listener is quiet.
void selectSections(const std::vector<ElemSection>& elemSections,
                    std::vector<SectionSources>& solids, std::vector<SectionSources>& shells,
                    const text::Listener& listener = {});

/// Where a set name stands on two or more sections of the list: puts those of one name together,
/// and the whole list in the order of the names. Otherwise the list stays as it is.
void MergeSectionsByElset(std::vector<SectionSources>& sections, const text::Listener& listener);

/// Makes the sections anew: solids reduced to their corner nodes, merged sections filled up to
/// eight-node solids or four-node shells, connectivity in new node IDs.
void makeSections(const std::vector<SectionSources>& sources, const OidMap<int>& nodeOidMap,
                  std::vector<ElemSection>& sections, const text::Listener& listener);

}  // namespace kvocaeio::abaqus
