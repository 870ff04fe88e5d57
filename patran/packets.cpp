/// The packets, each as the two readers take it.
#include "patran/packets.h"

#include <algorithm>
#include <cmath>

namespace kvocaeio::patran {

namespace {

constexpr int kBar = 2;
constexpr int kTriangle = 3;

std::array<float, 3> takeNode(PacketLines& lines, int index, IdMap& nodeIds) {
    nodeIds.set(lines.header.id, index);
    const std::array<float, 3> coordinates = coordinatesOf(lines.nextCard());
    lines.nextCard();
    return coordinates;
}

int propertyIdOf(std::string_view elementCard) {
    int id = 0;
    readInteger(elementCard, 2 * kIntegerWidth, id);
    return id;
}

std::string_view takeProperty(PacketLines& lines) {
    lines.header.readFree(lines.line());
    return lines.nextCard();
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
    mesh.nodes.push_back(takeNode(lines, index, nodeIds));
}

void readNode(PacketLines& lines, int index, IdMap& nodeIds, FlatMesh& mesh) {
    std::ranges::copy(takeNode(lines, index, nodeIds), &mesh.vertices[3 * text::asSize(index)]);
}

void readElement(PacketLines& lines, int, const IdMap&, ListMesh& mesh) {
    const int shape = lines.header.iv;
    mesh.elementShapes.push_back(shape);
    mesh.elementPropertyIds.push_back(propertyIdOf(lines.nextCard()));
    std::array<int, 4> corners = integersOf<4>(lines.nextCard());
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
    mesh.elementProperties[row] = propertyIdOf(lines.nextCard());
    int* slot = &mesh.elementNodes[row * kNodesPerElement];
    for (const int id : integersOf<kNodesPerElement>(lines.nextCard()))
        *slot++ = nodeIds.holds(id) ? id : kUnknownNode;
}

void readProperty(PacketLines& lines, ListMesh& mesh) {
    const std::array<float, 2> values = propertyValuesOf(takeProperty(lines));
    const int id = lines.header.id;
    if (id < 0 || id >= kPropertyIdEnd)
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
    takeProperty(lines);
}

void readSummary(PacketLines& lines, ListMesh& mesh) {
    takeSummary(lines, mesh);
}

void readSummary(PacketLines& lines, FlatMesh& mesh) {
    lines.header = HeaderCard();
    lines.header.readFixed(lines.line());
    mesh = FlatMesh();  // frees the arrays before it makes others
    takeSummary(lines, mesh);
    const std::size_t elements = text::asSize(mesh.elementCount) + 1;
    mesh.vertices = text::makeZeroed<float>(text::asSize(mesh.nodeCount) + 1, 3);
    mesh.elementNodes = text::makeZeroed<int>(elements, kNodesPerElement);
    mesh.elementTypes = text::makeZeroed<int>(elements);
    mesh.elementProperties = text::makeZeroed<int>(elements);
}

}  // namespace kvocaeio::patran
