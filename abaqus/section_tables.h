/// The sorted lists of solid and shell sections: made from the raw ones, merged by set name.
#pragma once

#include <vector>

#include "abaqus/model.h"

namespace kvocaeio {

/// Copies the solids and the shells of `raw` apart, in deck order: solids reduced to their corner
/// nodes, connectivity in new node IDs. Says on standard output what it meets.
void copySections(const RawModel& raw, std::vector<ElemSection>& solidSections,
                  std::vector<ElemSection>& shellElemSections);

/// Where a set name stands on two or more sections of the list: one section per name, in the order of
/// the names, those of one name merged into eight-node solids or four-node shells. Otherwise the list
/// stays as it is.
void MergeSectionsByElset(std::vector<ElemSection>& sections);

}  // namespace kvocaeio
