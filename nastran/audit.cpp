/// Counts of a deck's tables.
#include "nastran/audit.h"

namespace kvocaeio::nastran {

void auditDeck(const DeckTables& deck, report::ImportReport& report) {
    report.addCount("rows of nodes", deck.extent.maxNodeId);
    report.addCount("rows of elements", deck.extent.maxElemId);
    report.addCount("rows of sections", deck.sectionCount);
}

}  // namespace kvocaeio::nastran
