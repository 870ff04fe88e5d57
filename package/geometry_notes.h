/// What somebody who listens to the geometry pass is told; to be called while
/// somebody does. Nothing here reads for the model.
#pragma once

#include <string_view>

#include "package/geometry_block.h"
#include "package/lines.h"

namespace kvocaeio::package {

/// The line that opens a block.
void noteFirstLine(text::PassLines& lines, GeometryBlock& block);

/// A line of a block's head that is complete: what it repeats, and what of it is dropped.
void noteHeadLine(text::PassLines& lines, GeometryBlock& block, HeadLine head);

/// A row of a polygon with `count` numbers, of at most `most`, that end at `behind`. `isShort`:
/// whether the polygon is known to lack points; its rows may be anything then.
void notePolygonRow(text::PassLines& lines, int count, std::size_t most, const char* behind,
                    bool& isShort);

/// What follows the last row of a polygon. Takes no line.
void noteAfterPolygon(text::PassLines& lines);

/// A block that becomes no body, at its first line.
void noteNoBody(text::PassLines& lines, const GeometryBlock& block, const BlockTables& tables);

/// A body as it was made of a block, at its first line.
void noteBody(text::PassLines& lines, const GeometryBlock& block, const ComponentRecord& record);

/// Whether a line that is taken for a row of points is the end or the beginning of a block.
bool isBlockEnd(std::string_view line);

/// What stands after the numbers of a row.
void noteRest(text::PassLines& lines, int count, std::size_t most, const char* behind);

}  // namespace kvocaeio::package
