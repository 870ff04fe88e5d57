/// Which body a block is, and its place and size.
#include "package/geometry_block.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace kvocaeio::package {

namespace {

constexpr double kStartOfMinima = 1e10;

ComponentType typeByName(std::string_view name) {
    if (name.find("INTERPOSER") != std::string_view::npos)
        return ComponentType::kInterposer;
    if (name.find("SPACER") != std::string_view::npos)
        return ComponentType::kSpacer;
    return ComponentType::kDie;
}

const std::string& nameOf(const GeometryBlock& block, const BlockTables& tables) {
    return block.name.empty() ? tables.layerNames.at(block.layerId) : block.name;
}

void setBox(const GeometryBlock& block, ComponentRecord& record) {
    record.center = {block.x.middle(), block.y.middle(), block.z.middle()};
    record.size = {block.x.extent(), block.y.extent(), block.z.extent()};
}

}  // namespace

void GeometryBlock::reset(double startOfMaxima) {
    name.clear();
    objectId = layerId = colorId = -1;
    x = y = z = {kStartOfMinima, startOfMaxima};
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
                 double unitScale, ComponentRecord& record) {
    if (!isWanted(block, kinds))
        return false;
    if (block.objectId == kinds.symbol) {
        record.name = nameOf(block, tables);
        record.type = typeByName(record.name);
        setBox(block, record);
    } else if (block.objectId == kinds.ball) {
        record.name = nameOf(block, tables);
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
    record.color = tables.colorTable.at(block.colorId);
    for (double& length : record.center)
        length *= unitScale;
    for (double& length : record.size)
        length *= unitScale;
    return true;
}

}  // namespace kvocaeio::package
