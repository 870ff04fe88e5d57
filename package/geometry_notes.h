/// What somebody who listens to the geometry pass is told. Nothing here reads for the model.
#pragma once

#include <string_view>

#include "package/geometry_block.h"
#include "package/lines.h"

namespace kvocaeio::package {

/// A line of a block's head that is complete: what it repeats, and what of it is dropped.
void noteHeadLine(text::PassLines& lines, const GeometryBlock& block, BlockPart part);

/// A line of a block's head that no keyword stands in. One of a wire marks the block.
void noteOtherLine(text::PassLines& lines, GeometryBlock& block);

/// A row of a polygon with `count` numbers, of at most `most`, and `rest` after them. `isShort`:
/// whether the polygon is known to lack points; its rows may be anything then.
void notePolygonRow(text::PassLines& lines, int count, std::size_t most, std::string_view rest,
                    bool& isShort);

/// What follows the last row of a polygon. Takes no line.
void noteAfterPolygon(text::PassLines& lines);

/// A block that becomes no body, at its first line.
void noteNoBody(text::PassLines& lines, const GeometryBlock& block, const BlockTables& tables);

/// A body as it was made of a block, at its first line.
void noteBody(text::PassLines& lines, const GeometryBlock& block, const ComponentRecord& record);

/// Whether a line that is taken for a row of points is the end or the beginning of a block.
bool isBlockEnd(std::string_view line);

/// What `rest` after the numbers of a row means.
void noteRest(text::PassLines& lines, std::size_t count, std::size_t most, std::string_view rest);

}  // namespace kvocaeio::package
