/// The packets as they are written.
#include "patran/pat_writer.h"

#include <algorithm>
#include <exception>
#include <string_view>
#include <utility>

#include "patran/card.h"
#include "text/file.h"

namespace kvocaeio::patran {

namespace {

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

PacketWriter::PacketWriter(text::Writer& file, int nodes, int elements)
    : file_(file), nodes_(nodes), elements_(elements) {
    file_.text("25       0       0       1       0       0       0       0       0\n");
    file_.text("**                 Created By : Vorlan9Q-Mesh R13\n");
    writeHeader(file_, kSummaryPacket, 0, 0, 1);
    writeFields(file_, std::array{nodes, elements, 0, 1, 1}).text("\n\n");
}

void PacketWriter::node(int id, const Point& point) {
    writeHeader(file_, kNodePacket, id, 0, 2);
    if (std::exchange(isFirst_, false))
        writeFields(file_, std::array{nodes_, elements_, 0, 1}).text("81\n");
    else
        file_.text(kHeaderEnd);
    for (const double coordinate : point)
        file_.scientific(coordinate, kRealWidth);
    file_.text("\n       0       0       0       0       0       0       0       0       0\n");
}

void PacketWriter::element(int id, int shape, const Block& nodes) {
    writeHeader(file_, kElementPacket, id, shape, 2).text(kHeaderEnd);
    writeFields(file_, std::array{shape, 2, 0}).text("\n");
    writeFields(file_, nodes).text("\n");
}

void PacketWriter::end() {
    writeHeader(file_, kEndPacket, 0, 0, 1).text(kHeaderEnd).text("\n");
}

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
    PacketWriter packets(file, nodeCount, elemCount);
    for (int i = 0; i < nodeCount; ++i)
        packets.node(i + 1, isRow(i, nodeRows) ? nodePoints[text::asSize(i)] : Point{});
    for (int i = 0; i < elemCount; ++i) {
        const bool made = isRow(i, elemRows);
        const std::size_t row = text::asSize(i);
        packets.element(i + 1, made ? elemShapes[row] : 0, made ? elemNodes[row] : Block{});
    }
    packets.end();
}

}  // namespace kvocaeio::patran
