/// OIDs that an Abaqus deck defines more than once, as decks of several parts do.
#pragma once

#include "abaqus/tables.h"
#include "mesh_checks.h"

namespace kvocaeio::host {

/// Repeated nodes by rows of the node table; two are alike at the same place.
OidRepeats findRepeatedNodes(const DeckTables& tables);

/// Repeated elements of all sections that have nodes, by their number in deck order; two are alike
/// with the same nodes in the same order.
OidRepeats findRepeatedElements(const DeckTables& tables);

}  // namespace kvocaeio::host
