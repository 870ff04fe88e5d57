/// What a report tells of the finished tables: how much was read, and what is wrong with it.
#pragma once

#include "nastran/model.h"
#include "report/import_report.h"

namespace kvocaeio::nastran {

/// Over the tables of one deck, whose sets of rows it empties: nobody else needs them.
void auditDeck(DeckTables& deck, report::ImportReport& report);

}  // namespace kvocaeio::nastran
