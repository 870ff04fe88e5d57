/// Why the mesh of a file is not taken, although it could be.
#pragma once

#include <cstddef>
#include <string>

namespace kvocaeio::host {

struct ImportFindings;
class TidiedDeck;

/// Refuses numbers that the deck defines again, of which tidying has kept the last definition.
void refuseRepeats(const TidiedDeck& deck);

/// Refuses a source that was read wrongly, which makes a wrong mesh.
void refuseErrors(const ImportFindings& imported, const std::string& source);

/// Refuses so many nodes with coordinates that are no finite numbers; none are no reason.
void refuseInfinitePlaces(std::size_t nodes);

}  // namespace kvocaeio::host
