/// The packets as they are written.
#include "patran/pat_writer.h"

#include <algorithm>
#include <exception>
#include <string_view>

#include "patran/card.h"
#include "text/file.h"

namespace kvocaeio::patran {

namespace {

// The shape code that belongs to a number of nodes; `shape` where none does.
constexpr int shapeFor(int nodes, int shape) {
    return nodes == 4 ? 5 : nodes == 6 ? 7 : nodes == 8 ? 8 : shape;
}

constexpr bool isRow(int index, int rows) {
    return index >= 0 && index < rows;
}

// Makes arrays of `count` rows in place of the old ones; no rows where memory cannot be allocated.
template <class... Value>
void remake(int count, int& rows, text::ZeroedArray<Value>&... arrays) noexcept {
    rows = 0;
    (arrays.reset(), ...);
    try {
        ((arrays = text::makeZeroed<Value>(text::asSize(count))), ...);
        rows = count;
    } catch (const std::bad_alloc&) {
    }
}

// Eight columns each.
template <std::size_t kCount>
text::Writer& writeFields(text::Writer& file, const std::array<int, kCount>& numbers) {
    for (const int number : numbers)
        file.integer(number, kIntegerWidth);
    return file;
}

text::Writer& writeHeader(text::Writer& file, PacketType type, int id, int iv, int kc) {
    return writeFields(file.integer(type, kTypeWidth), std::array{id, iv, kc});
}

// N1 to N5 of a header card as the packets after the summary have them: N5 stands, without a width
// of its own, after a digit 8, so that the card is shorter than the others.
constexpr std::string_view kHeaderEnd = "       0       0       0       080\n";

}  // namespace

void CPATWriter::SetFilePath(const char* path) {
    filePath = path;
}

void CPATWriter::SetNodeCount(int count) {
    nodeCount = count;
}

void CPATWriter::SetNodeArray() noexcept {
    if (nodeCount >= 1)
        remake(nodeCount, nodeRows, nodePoints);
}

void CPATWriter::AddNode(int index, double x, double y, double z) {
    if (isRow(index, nodeRows))
        nodePoints[text::asSize(index)] = {x, y, z};
}

void CPATWriter::SetElemCount(int count) {
    elemCount = count;
}

bool CPATWriter::SetElemArray() noexcept {
    if (elemCount < 1)
        return false;
    remake(elemCount, elemRows, elemNodes, elemShapes);
    return elemRows > 0;
}

void CPATWriter::AddElement(int index, int count, const int* nodes) {
    if (!isRow(index, elemRows))
        return;
    const std::size_t row = text::asSize(index);
    Block& block = elemNodes[row];
    std::copy_n(nodes, std::min(text::asSize(count), block.size()), block.begin());
    elemShapes[row] = shapeFor(count, elemShapes[row]);
}

bool CPATWriter::WriteFile() const noexcept {
    if (nodeRows == 0 || elemRows == 0)
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
    writeHeader(file, kSummaryPacket, 0, 0, 1);
    writeFields(file, std::array{nodeCount, elemCount, 0, 1, 1}).text("\n\n");
    for (int i = 0; i < nodeCount; ++i)
        writeNode(file, i);
    for (int i = 0; i < elemCount; ++i)
        writeElement(file, i);
    writeHeader(file, kEndPacket, 0, 0, 1).text(kHeaderEnd).text("\n");
}

void CPATWriter::writeNode(text::Writer& file, int index) const {
    writeHeader(file, kNodePacket, index + 1, 0, 2);
    if (index == 0)
        writeFields(file, std::array{nodeCount, elemCount, 0, 1}).text("81\n");
    else
        file.text(kHeaderEnd);
    for (const double coordinate :
         isRow(index, nodeRows) ? nodePoints[text::asSize(index)] : Point{})
        file.scientific(coordinate, kRealWidth);
    file.text("\n       0       0       0       0       0       0       0       0       0\n");
}

void CPATWriter::writeElement(text::Writer& file, int index) const {
    const bool made = isRow(index, elemRows);
    const std::size_t row = text::asSize(index);
    const int shape = made ? elemShapes[row] : 0;
    writeHeader(file, kElementPacket, index + 1, shape, 2).text(kHeaderEnd);
    writeFields(file, std::array{shape, 2, 0}).text("\n");
    writeFields(file, made ? elemNodes[row] : Block{}).text("\n");
}

}  // namespace kvocaeio::patran
