/// The cards and fixed parts of a written deck, in their comma-separated layout.
#pragma once

#include <span>
#include <string_view>

#include "text/format.h"

namespace kvocaeio::nastran {

/// Everything up to "BEGIN BULK" and the coordinate system, with the local date and time.
void writeHeader(text::Writer& deck, std::string_view meshUnit);

void writeFooter(text::Writer& deck);

/// One `GRID` card.
void writeGrid(text::Writer& deck, int id, double x, double y, double z);

/// One `PSOLID` card of material 1.
void writeSolidSection(text::Writer& deck, int id);

/// The solid card for this number of nodes: 4, 6, 8 or, with mid-side nodes, 10, 15, 20. Nothing
/// for another number.
void writeElement(text::Writer& deck, int id, int section, std::span<const int> nodes);

}  // namespace kvocaeio::nastran
