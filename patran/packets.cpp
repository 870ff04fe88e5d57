/// The packets, each as the two readers take it.
#include "patran/packets.h"

#include <algorithm>
#include <cmath>

#include "patran/packet_notes.h"

namespace kvocaeio::patran {

namespace {

constexpr int kBar = 2;
constexpr int kTriangle = 3;

// Rows are stored in this order, but a second summary may have forgotten some.
void keepId(std::vector<int>& ids, int index, int id) {
    ids.resize(text::asSize(index));
    ids.push_back(id);
}

std::array<float, 3> takeNode(PacketLines& lines, int index, IdMap& nodeIds, StoredIds& stored) {
    const int id = lines.header.id;
    if (lines.areNoted()) [[unlikely]]
        noteNodeId(lines, nodeIds.isDefined(id), nodeIds.holds(id));
    if (lines.areNoted() || stored.areWanted) [[unlikely]]
        keepId(stored.nodes, index, id);
    nodeIds.set(id, index);
    OddFields odd = 0;
    const std::array<float, 3> coordinates = coordinatesOf(lines.nextCard(), odd);
    if (odd != 0) [[unlikely]]
        noteOddFields(lines, odd, kRealWidth);
    lines.nextCard();
    return coordinates;
}

int takePropertyId(PacketLines& lines) {
    constexpr std::size_t kField = 2;
    int id = 0;
    const FieldContent content = readInteger(lines.nextCard(), kField * kIntegerWidth, id);
    if (content > FieldContent::kBlank) [[unlikely]]
        noteOddFields(lines, oddField(kField), kIntegerWidth);
    return id;
}

template <std::size_t kNodes>
std::array<int, kNodes> takeNodeIds(PacketLines& lines) {
    OddFields odd = 0;
    const std::array<int, kNodes> ids = integersOf<kNodes>(lines.nextCard(), odd);
    if (odd != 0) [[unlikely]]
        noteOddFields(lines, odd, kIntegerWidth);
    if (lines.areNoted()) [[unlikely]]
        noteDroppedNodes(lines, kNodes);
    return ids;
}

// The type of a property with two values goes by the first one without its fraction.
constexpr int typeOfTwoValues(float whole) {
    return whole == 2.0F ? 10 : whole == 3.0F ? 11 : whole == 12.0F ? 12 : 2;
}

template <class Mesh>
void takeSummary(PacketLines& lines, Mesh& mesh) {
    mesh.nodeCount = lines.header.n1;
    mesh.elementCount = lines.header.n2;
    mesh.propertyCount = lines.header.n4;
    lines.nextCard();
}

}  // namespace

void readNode(PacketLines& lines, int index, IdMap& nodeIds, ListMesh& mesh) {
    mesh.nodes.push_back(takeNode(lines, index, nodeIds, mesh.storedIds));
}

void readNode(PacketLines& lines, int index, IdMap& nodeIds, FlatMesh& mesh) {
    if (lines.areNoted() && lines.header.id == 0) [[unlikely]]
        lines.note(Finding::kNodeIdZero);
    std::ranges::copy(takeNode(lines, index, nodeIds, mesh.storedIds),
                      &mesh.vertices[3 * text::asSize(index)]);
}

void readElement(PacketLines& lines, int index, const IdMap&, ListMesh& mesh) {
    const int shape = lines.header.iv;
    if (lines.areNoted()) [[unlikely]]
        keepId(mesh.storedIds.elements, index, lines.header.id);
    mesh.elementShapes.push_back(shape);
    mesh.elementPropertyIds.push_back(takePropertyId(lines));
    std::array<int, 4> corners = takeNodeIds<4>(lines);
    if (shape == kBar)
        corners[2] = corners[3] = corners[1];
    else if (shape == kTriangle)
        corners[3] = corners[2];
    mesh.elements.push_back(corners);
}

void readElement(PacketLines& lines, int index, const IdMap& nodeIds, FlatMesh& mesh) {
    const std::size_t row = text::asSize(index);
    const int shape = lines.header.iv;
    const bool isKnown = (shape >= kBar && shape <= 5) || shape == 7 || shape == 8;
    mesh.elementTypes[row] = isKnown ? shape : 0;
    if (!isKnown) [[unlikely]]
        noteShape(lines);
    if (lines.areNoted() || mesh.storedIds.areWanted) [[unlikely]]
        keepId(mesh.storedIds.elements, index, lines.header.id);
    mesh.elementProperties[row] = takePropertyId(lines);
    int* slot = &mesh.elementNodes[row * kNodesPerElement];
    for (const int id : takeNodeIds<kNodesPerElement>(lines))
        *slot++ = nodeIds.holds(id) ? id : kUnknownNode;
}

void readProperty(PacketLines& lines, ListMesh& mesh) {
    const HeaderCard inColumns = lines.header;
    lines.header.readFree(lines.line());
    const int id = lines.header.id;
    const bool isKept = id >= 0 && id < kPropertyIdEnd;
    if (lines.areNoted()) [[unlikely]] {
        notePropertyHeader(lines, inColumns, isKept, mesh.propertyTypes.isSet(id));
        mesh.storedIds.properties.push_back(id);
    }
    OddFields odd = 0;
    const std::array<float, 2> values = propertyValuesOf(lines.nextCard(), odd);
    if (odd != 0) [[unlikely]]
        noteOddValues(lines, odd);
    if (!isKept)
        return;
    const double second = values[1];
    mesh.propertyTypes.reach(id);
    mesh.propertyValueA.reach(id);
    mesh.propertyValueB.reach(id);
    mesh.propertyValueC.reach(id);
    switch (lines.header.n1) {
        case 2:
            mesh.propertyTypes.set(id, typeOfTwoValues(std::trunc(values[0])));
            mesh.propertyValueB.set(id, second);
            mesh.propertyValueC.set(id, second);
            break;
        case 3:
        case 4:
            mesh.propertyTypes.set(id, second > 0.0 ? 13 : 3);
            mesh.propertyValueA.set(id, second);
            break;
        default:
            break;
    }
}

void readProperty(PacketLines& lines, FlatMesh&) {
    lines.header.readFree(lines.line());
    lines.nextCard();
}

void readSummary(PacketLines& lines, ListMesh& mesh) {
    takeSummary(lines, mesh);
}

void readSummary(PacketLines& lines, FlatMesh& mesh) {
    lines.header = HeaderCard();
    lines.header.readFixed(lines.line());
    const bool idsAreWanted = mesh.storedIds.areWanted;
    mesh = FlatMesh();  // frees the arrays before it makes others
    mesh.storedIds.areWanted = idsAreWanted;
    takeSummary(lines, mesh);
    const std::size_t elements = text::asSize(mesh.elementCount) + 1;
    mesh.vertices = text::makeZeroed<float>(text::asSize(mesh.nodeCount) + 1, 3);
    mesh.elementNodes = text::makeZeroed<int>(elements, kNodesPerElement);
    mesh.elementTypes = text::makeZeroed<int>(elements);
    mesh.elementProperties = text::makeZeroed<int>(elements);
}

}  // namespace kvocaeio::patran
