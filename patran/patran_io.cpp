/// The two passes over a file: the highest node id, then the packets.
#include "patran/patran_io.h"

#include <cmath>
#include <cstddef>
#include <exception>
#include <string_view>

#include "patran/card_fields.h"
#include "patran/id_map.h"
#include "patran/packet_lines.h"

namespace kvocaeio {

namespace {

// Where the first pass skips data cards, longer pieces of a line count as one.
constexpr std::size_t kSkippedLineBound = 260;

constexpr int kBar = 2;
constexpr int kTriangle = 3;

// The second pass: stores what the packets hold, corners still as node ids.
class DataPass {
  public:
    DataPass(std::FILE* file, IdMap& nodeMap, CKVO_PatranIO& mesh)
        : lines_(file), nodeMap_(nodeMap), mesh_(mesh) {}

    void run();

  private:
    void readNode();
    void readElement();
    void readProperty();
    void storeProperty(const std::array<float, 2>& values);
    void readSummary();

    PacketLines lines_;
    const HeaderCard& header_ = lines_.header;
    IdMap& nodeMap_;
    CKVO_PatranIO& mesh_;
    int nodesRead_ = 0;
    int elementsRead_ = 0;
    int propertiesRead_ = 0;
};

void DataPass::run() {
    while (lines_.nextHeader()) {
        switch (header_.it) {
            case kNodePacket:
                readNode();
                break;
            case kElementPacket:
                readElement();
                break;
            case kPropertyPacket:
                readProperty();
                break;
            case kTitlePacket:
                lines_.nextCard();
                break;
            case kSummaryPacket:
                readSummary();
                break;
            case kEndPacket:
                return;
            default:
                lines_.skip(header_.kc);
        }
    }
}

void DataPass::readNode() {
    // What the summary does not count is left to be read as headers.
    if (nodesRead_ >= mesh_.nodeCount)
        return;
    nodeMap_.set(header_.id, nodesRead_);
    mesh_.nodes.push_back(coordinatesOf(lines_.nextCard()));
    ++nodesRead_;
    lines_.nextCard();
}

void DataPass::readElement() {
    if (elementsRead_ >= mesh_.elementCount)
        return;
    mesh_.elementShapes.push_back(header_.iv);
    mesh_.elementPropertyIds.push_back(elementPropertyIdOf(lines_.nextCard()));
    std::array<int, 4> corners = integersOf<4>(lines_.nextCard());
    if (header_.iv == kBar)
        corners[2] = corners[3] = corners[1];
    else if (header_.iv == kTriangle)
        corners[3] = corners[2];
    mesh_.elements.push_back(corners);
    ++elementsRead_;
}

void DataPass::readProperty() {
    if (propertiesRead_ >= mesh_.propertyCount)
        return;
    lines_.header.readFree(lines_.line());
    const std::array<float, 2> values = propertyValuesOf(lines_.nextCard());
    if (header_.id >= 0 && header_.id < kPropertyIdEnd)
        storeProperty(values);
    ++propertiesRead_;
}

void DataPass::storeProperty(const std::array<float, 2>& values) {
    const int id = header_.id;
    const float kind = std::trunc(values[0]);
    const double second = values[1];
    mesh_.propertyTypes.reach(id);
    mesh_.propertyValueA.reach(id);
    mesh_.propertyValueB.reach(id);
    mesh_.propertyValueC.reach(id);
    switch (header_.n1) {
        case 2:
            mesh_.propertyTypes.set(id, kind == 2.0F    ? 10
                                        : kind == 3.0F  ? 11
                                        : kind == 12.0F ? 12
                                                        : 2);
            mesh_.propertyValueB.set(id, second);
            mesh_.propertyValueC.set(id, second);
            break;
        case 3:
        case 4:
            mesh_.propertyTypes.set(id, second > 0.0 ? 13 : 3);
            mesh_.propertyValueA.set(id, second);
            break;
        default:
            break;
    }
}

void DataPass::readSummary() {
    mesh_.nodeCount = header_.n1;
    mesh_.elementCount = header_.n2;
    mesh_.propertyCount = header_.n4;
    lines_.nextCard();
}

}  // namespace

int CKVO_PatranIO::FindMaxNodeId(std::FILE* file) {
    PacketLines lines(file, kSkippedLineBound);
    int maxId = 0;
    while (lines.nextHeader() && lines.header.it != kEndPacket) {
        if (lines.header.it == kNodePacket)
            maxId = std::max(maxId, lines.header.id);
        lines.skip(lines.header.kc);
    }
    return maxId;
}

bool CKVO_PatranIO::ReadPackets(std::FILE* file) noexcept {
    try {
        const long start = std::ftell(file);
        IdMap nodeMap(FindMaxNodeId(file));
        std::fseek(file, start, SEEK_SET);
        DataPass(file, nodeMap, *this).run();
        for (std::array<int, 4>& corners : elements)
            for (int& corner : corners)
                corner = nodeMap.at(corner);
        return true;
    } catch (const std::exception&) {  // memory ran out
        clearLists();
        return false;
    }
}

// Without all of them, corners would still be node ids.
void CKVO_PatranIO::clearLists() noexcept {
    nodes.clear();
    elements.clear();
    elementPropertyIds.clear();
    elementShapes.clear();
    propertyTypes.clear();
    propertyValueA.clear();
    propertyValueB.clear();
    propertyValueC.clear();
}

}  // namespace kvocaeio
