/// Which body a block is, and its place and size.
#include "package/geometry_block.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>

#include "package/geometry_notes.h"

namespace kvocaeio::package {

namespace {

ComponentType typeByName(std::string_view name) {
    if (name.find("INTERPOSER") != std::string_view::npos)
        return ComponentType::kInterposer;
    if (name.find("SPACER") != std::string_view::npos)
        return ComponentType::kSpacer;
    return ComponentType::kDie;
}

// The entry of an id that a block names. Noted are `unknown` where the table ends before it, and
// `absent` where it has no row of it; `what` is the id's meaning.
template <class Entry>
const Entry& entryOf(const IdTable<Entry>& table, int id, text::PassLines& lines,
                     const text::LinePlace& place, const char* what, Finding unknown,
                     Finding absent) {
    const Entry* const row = table.find(id);
    if (row != nullptr) [[likely]]
        return *row;
    if (lines.areNoted())
        lines.noteAt(table.reaches(id) ? absent : unknown, place, what + std::to_string(id));
    return table.at(id);
}

const std::string& nameOf(const GeometryBlock& block, const BlockTables& tables,
                          text::PassLines& lines) {
    return !block.name.empty() ? block.name
                               : entryOf(tables.layerNames, block.layerId, lines, block.place,
                                         "layer ", Finding::kNameUnknown, Finding::kNameEmpty);
}

void setBox(const GeometryBlock& block, ComponentRecord& record) {
    record.center = {block.x.middle(), block.y.middle(), block.z.middle()};
    record.size = {block.x.extent(), block.y.extent(), block.z.extent()};
}

}  // namespace

void GeometryBlock::reset(double startOfMaxima) {
    name.clear();
    objectId = layerId = colorId = -1;
    x = y = z = {AxisRange::kStartOfMinima, startOfMaxima};
    reachesOrigin = startOfMaxima == 0.0;
}

bool GeometryBlock::scanExtrusion(text::Scan scan) {
    int dropped = 0;
    AxisRange range{};
    if (!scan.integer(dropped) || !scan.real(range.min) || !scan.real(range.max))
        return false;
    z = range;
    return true;
}

bool GeometryBlock::scanBall(text::Scan scan) {
    std::array<double, 6> fields{};
    int dropped = 0;
    const auto real = [&scan](double& field) { return scan.real(field); };
    if (!std::ranges::all_of(fields, real) || !scan.integer(dropped))
        return false;
    const double radius = fields[3];
    const double h = fields[5];
    ballX = fields[0];
    ballY = fields[1];
    ballZ = fields[2] - (radius - std::sqrt(radius * radius - h * h));
    ballRadius = radius;
    return true;
}

bool isWanted(const GeometryBlock& block, const BodyKinds& kinds) {
    return block.objectId == kinds.symbol || block.objectId == kinds.ball ||
           block.layerId == kinds.outline || block.layerId == kinds.cap;
}

bool finishBlock(const GeometryBlock& block, const BodyKinds& kinds, const BlockTables& tables,
                 double unitScale, ComponentRecord& record, text::PassLines& lines) {
    if (!isWanted(block, kinds)) {
        if (lines.areNoted()) [[unlikely]]
            noteNoBody(lines, block, tables);
        return false;
    }
    if (block.objectId == kinds.symbol) {
        record.name = nameOf(block, tables, lines);
        record.type = typeByName(record.name);
        setBox(block, record);
    } else if (block.objectId == kinds.ball) {
        record.name = nameOf(block, tables, lines);
        record.type = ComponentType::kBall;
        record.center = {block.ballX, block.ballY, block.ballZ};
        record.size[0] = block.ballRadius * 2.0;
    }
    // The layer overrides the object.
    if (block.layerId == kinds.outline) {
        record.name = "SUBSTRATE";
        record.type = ComponentType::kSubstrate;
        setBox(block, record);
        record.size[2] = 2.0 * record.center[2];  // not the extent, deliberately
    } else if (block.layerId == kinds.cap) {
        record.name = "PACKAGECAP";
        record.type = ComponentType::kCap;
        setBox(block, record);
    }
    record.color = entryOf(tables.colorTable, block.colorId, lines, block.place, "colour ",
                           Finding::kColorUnknown, Finding::kColorUndefined);
    if (lines.areNoted()) [[unlikely]]
        noteBody(lines, block, record);
    for (double& length : record.center)
        length *= unitScale;
    for (double& length : record.size)
        length *= unitScale;
    return true;
}

}  // namespace kvocaeio::package
