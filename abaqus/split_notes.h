/// Notes of the split of a section by generated sets.
#pragma once

#include <vector>

#include "abaqus/findings.h"
#include "abaqus/model.h"

namespace kvocaeio::abaqus {

/// Notes what becomes of the elements of `source`, which `made`, one section for each set, takes
/// the place of. `rowOfOid` maps their OIDs. Does nothing while nobody listens.
void noteSplit(const std::vector<const ElsetSection*>& sets, const std::vector<ElemSection>& made,
               const ElemSection& source, const OidMap<int>& rowOfOid,
               const text::Listener& listener) noexcept;

}  // namespace kvocaeio::abaqus
