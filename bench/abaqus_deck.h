/// Generated Abaqus decks: solids in several element blocks, a skin of shells, sets, surfaces,
/// loads.
#pragma once

#include "text/format.h"

namespace kvocaeio::bench {

/// `solids` hexahedra C3D8 with a skin of S4, an element to a line.
void writeHexDeck(text::Writer& out, int solids);

/// `solids` tetrahedra C3D10 with a skin of S3, an element to two lines.
void writeTetDeck(text::Writer& out, int solids);

}  // namespace kvocaeio::bench
