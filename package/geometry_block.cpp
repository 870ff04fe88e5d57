/// Which body a block is, and its place and size.
#include "package/geometry_block.h"

#include <cmath>
#include <string_view>

namespace kvocaeio {

namespace {

constexpr double kStartOfMinima = 1e10;

ComponentType typeByName(std::string_view name) {
    if (name.find("INTERPOSER") != std::string_view::npos)
        return ComponentType::kInterposer;
    if (name.find("SPACER") != std::string_view::npos)
        return ComponentType::kSpacer;
    return ComponentType::kDie;
}

const std::string& nameOf(const GeometryBlock& block, const CKVOCadenceReaderImp& model) {
    return block.name.empty() ? model.layerNames->at(block.layerId) : block.name;
}

void setBox(const GeometryBlock& block, ComponentRecord& record) {
    record.center = {block.x.middle(), block.y.middle(), block.z.middle()};
    record.size[0] = block.x.extent();
    record.size[1] = block.y.extent();
    record.size[2] = block.z.extent();
}

}  // namespace

void GeometryBlock::reset(double startOfMaxima) {
    name.clear();
    objectId = layerId = colorId = -1;
    x = y = z = {kStartOfMinima, startOfMaxima};
}

void GeometryBlock::setBall(double centerX, double centerY, double uncorrectedZ, double radius,
                            double h) {
    ballX = centerX;
    ballY = centerY;
    ballZ = uncorrectedZ - (radius - std::sqrt(radius * radius - h * h));
    ballRadius = radius;
}

bool isWanted(const GeometryBlock& block, const BodyKinds& kinds) {
    return block.objectId == kinds.symbol || block.objectId == kinds.ball ||
           block.layerId == kinds.outline || block.layerId == kinds.cap;
}

bool finishBlock(const GeometryBlock& block, const BodyKinds& kinds,
                 const CKVOCadenceReaderImp& model, ComponentRecord& record) {
    if (!isWanted(block, kinds))
        return false;
    if (block.objectId == kinds.symbol) {
        record.name = nameOf(block, model);
        record.type = typeByName(record.name);
        setBox(block, record);
    } else if (block.objectId == kinds.ball) {
        record.name = nameOf(block, model);
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
    record.color = model.colorTable->at(block.colorId);
    for (double& length : record.center)
        length *= model.unitScale;
    for (double& length : record.size)
        length *= model.unitScale;
    return true;
}

}  // namespace kvocaeio
