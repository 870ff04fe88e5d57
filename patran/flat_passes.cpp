/// The packets as `CPatranReader` takes them.
#include "patran/flat_passes.h"

#include <algorithm>
#include <cstddef>

#include "patran/card_fields.h"
#include "patran/packet_lines.h"

namespace kvocaeio {

namespace {

void reportEndOfFile() {
    std::printf("We have reached end-of-file\n");
}

constexpr int storedShape(int shape) {
    switch (shape) {
        case 2:
        case 3:
        case 4:
        case 5:
        case 7:
        case 8:
            return shape;
        default:
            return 0;
    }
}

class DataPass {
  public:
    DataPass(std::FILE* file, IdMap& nodeIdMap, FlatMesh& mesh)
        : lines_(file), nodeIdMap_(nodeIdMap), mesh_(mesh) {}

    void run();

  private:
    void readNode();
    void readElement();
    void readProperty();
    void readSummary();

    PacketLines lines_;
    const HeaderCard& header_ = lines_.header;
    IdMap& nodeIdMap_;
    FlatMesh& mesh_;
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
    reportEndOfFile();
}

void DataPass::readNode() {
    // What the summary does not count is left to be read as headers.
    if (nodesRead_ >= mesh_.nodeCount)
        return;
    nodeIdMap_.set(header_.id, nodesRead_);
    std::ranges::copy(coordinatesOf(lines_.nextCard()),
                      &mesh_.vertices[3 * text::asSize(nodesRead_)]);
    lines_.nextCard();
    ++nodesRead_;
}

void DataPass::readElement() {
    if (elementsRead_ >= mesh_.elemCount)
        return;
    const std::size_t row = text::asSize(elementsRead_);
    mesh_.elemTypes[row] = storedShape(header_.iv);
    mesh_.elemProperties[row] = elementPropertyIdOf(lines_.nextCard());
    int* slot = &mesh_.elemNodes[row * kNodesPerElement];
    for (const int id : integersOf<kNodesPerElement>(lines_.nextCard()))
        *slot++ = nodeIdMap_.holds(id) ? id : kUnknownNode;
    ++elementsRead_;
}

void DataPass::readProperty() {
    if (propertiesRead_ >= mesh_.propertyCount)
        return;
    lines_.header.readFree(lines_.line());
    lines_.nextCard();
    ++propertiesRead_;
}

// The only packet whose header is read without what the headers before it left.
void DataPass::readSummary() {
    lines_.header = HeaderCard();
    lines_.header.readFixed(lines_.line());
    mesh_ = FlatMesh();
    mesh_.nodeCount = header_.n1;
    mesh_.elemCount = header_.n2;
    mesh_.propertyCount = header_.n4;
    mesh_.vertices = text::makeZeroed<float>(text::asSize(mesh_.nodeCount) + 1, 3);
    mesh_.elemNodes = text::makeZeroed<int>(text::asSize(mesh_.elemCount) + 1, kNodesPerElement);
    mesh_.elemTypes = text::makeZeroed<int>(text::asSize(mesh_.elemCount) + 1);
    mesh_.elemProperties = text::makeZeroed<int>(text::asSize(mesh_.elemCount) + 1);
    lines_.nextCard();
}

}  // namespace

int findHighestNodeId(std::FILE* file) {
    PacketLines lines(file);
    const HeaderCard& header = lines.header;
    int highest = 0;
    int seen = 0;
    int limit = 0;
    while (lines.nextHeader()) {
        switch (header.it) {
            case kNodePacket:
                if (seen >= limit)
                    break;
                highest = std::max(highest, header.id);
                lines.skip(2);
                ++seen;
                break;
            case kTitlePacket:
                lines.nextCard();
                break;
            case kSummaryPacket:
                limit = header.n1;
                lines.nextCard();
                break;
            case kEndPacket:
                return highest;
            default:
                lines.skip(header.kc);
        }
    }
    reportEndOfFile();
    return highest;
}

void readFlatMesh(std::FILE* file, IdMap& nodeIdMap, FlatMesh& mesh) {
    DataPass(file, nodeIdMap, mesh).run();
}

}  // namespace kvocaeio
