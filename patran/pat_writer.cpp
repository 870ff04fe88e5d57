/// The packets as they are written.
#include "patran/pat_writer.h"

#include <algorithm>
#include <exception>

#include "patran/header_card.h"
#include "text/file.h"

namespace kvocaeio {

namespace {

constexpr int kTypeWidth = 2;
constexpr int kIntegerWidth = 8;
constexpr int kRealWidth = 16;

// The shape code that belongs to a number of nodes; `shape` where none does.
constexpr int shapeFor(int nodes, int shape) {
    switch (nodes) {
        case 4:
            return 5;
        case 6:
            return 7;
        case 8:
            return 8;
        default:
            return shape;
    }
}

constexpr bool isRow(int index, int rows) {
    return index >= 0 && index < rows;
}

void writeFields(text::Writer& file, const auto& numbers) {
    for (const int number : numbers)
        file.integer(number, kIntegerWidth);
}

// A header card as the packets behind the summary have it. Its last number stands, without a width
// of its own, behind a digit 8, so that the card is shorter than the others.
void writeHeader(text::Writer& file, PacketType type, const std::array<int, 7>& numbers, int last) {
    file.integer(type, kTypeWidth);
    writeFields(file, numbers);
    file.character('8').integer(last).character('\n');
}

}  // namespace

void CPATWriter::SetFilePath(const char* path) {
    filePath = path;
    filePathSet = true;
}

void CPATWriter::SetNodeCount(int count) {
    nodeCount = count;
    nodeCountSet = true;
}

void CPATWriter::SetNodeArray() noexcept {
    if (nodeCount < 1)
        return;
    nodeArraySet = false;
    nodeRows = 0;
    for (ZeroedArray<double>* array : {&nodeX, &nodeY, &nodeZ})
        array->reset();
    try {
        for (ZeroedArray<double>* array : {&nodeX, &nodeY, &nodeZ})
            *array = makeZeroed<double>(asSize(nodeCount));
        nodeRows = nodeCount;
        nodeArraySet = true;
    } catch (const std::bad_alloc&) {
    }
}

void CPATWriter::AddNode(int index, double x, double y, double z) {
    if (!isRow(index, nodeRows))
        return;
    const std::size_t row = asSize(index);
    nodeX[row] = x;
    nodeY[row] = y;
    nodeZ[row] = z;
}

void CPATWriter::SetElemCount(int count) {
    elemCount = count;
    elemCountSet = true;
}

bool CPATWriter::SetElemArray() noexcept {
    if (elemCount < 1)
        return false;
    elemArraySet = false;
    elemRows = 0;
    elemNodes.reset();
    elemShapes.reset();
    try {
        elemNodes = makeZeroed<Block>(asSize(elemCount));
        elemShapes = makeZeroed<int>(asSize(elemCount));
        elemRows = elemCount;
        elemArraySet = true;
    } catch (const std::bad_alloc&) {
    }
    return elemArraySet;
}

void CPATWriter::AddElement(int index, int count, const int* nodes) {
    if (!isRow(index, elemRows))
        return;
    const std::size_t row = asSize(index);
    Block& block = elemNodes[row];
    std::copy_n(nodes, std::min(asSize(count), block.size()), block.begin());
    elemShapes[row] = shapeFor(count, elemShapes[row]);
}

bool CPATWriter::WriteFile() const noexcept {
    if (!filePathSet || !nodeCountSet || !nodeArraySet || !elemCountSet || !elemArraySet)
        return false;
    const text::File stream = text::openFile(filePath, "w");
    if (stream == nullptr)
        return false;
    try {
        text::Writer file(stream.get());
        writePackets(file);
        return true;
    } catch (const std::exception&) {  // memory ran out
        return false;
    }
}

void CPATWriter::writePackets(text::Writer& file) const {
    file.text("25       0       0       1       0       0       0       0       0\n");
    file.text("**                 Created By : Vorlan9Q-Mesh R13\n");
    file.integer(kSummaryPacket, kTypeWidth);
    writeFields(file, std::array{0, 0, 1, nodeCount, elemCount, 0, 1, 1});
    file.text("\n\n");
    for (int i = 0; i < nodeCount; ++i)
        writeNode(file, i);
    for (int i = 0; i < elemCount; ++i)
        writeElement(file, i);
    writeHeader(file, kEndPacket, {0, 0, 1}, 0);
    file.character('\n');
}

void CPATWriter::writeNode(text::Writer& file, int index) const {
    if (index == 0)
        writeHeader(file, kNodePacket, {1, 0, 2, nodeCount, elemCount, 0, 1}, 1);
    else
        writeHeader(file, kNodePacket, {index + 1, 0, 2}, 0);
    const std::size_t row = asSize(index);
    for (const ZeroedArray<double>* array : {&nodeX, &nodeY, &nodeZ})
        file.scientific(isRow(index, nodeRows) ? (*array)[row] : 0.0, kRealWidth);
    file.character('\n');
    writeFields(file, std::array<int, 9>{});
    file.character('\n');
}

void CPATWriter::writeElement(text::Writer& file, int index) const {
    const bool made = isRow(index, elemRows);
    const std::size_t row = asSize(index);
    const int shape = made ? elemShapes[row] : 0;
    writeHeader(file, kElementPacket, {index + 1, shape, 2}, 0);
    writeFields(file, std::array{shape, 2, 0});
    file.character('\n');
    writeFields(file, made ? elemNodes[row] : Block{});
    file.character('\n');
}

}  // namespace kvocaeio
