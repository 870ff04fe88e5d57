/// The mesh that a host adds item by item, and the file that is made of it.
#pragma once

#include <array>
#include <cstddef>

#include "text/format.h"
#include "text/zeroed_array.h"

namespace kvocaeio::patran {

using Point = std::array<double, 3>;
using Block = std::array<int, 8>;

/// The shape code that belongs to a number of nodes; `shape` where none does.
constexpr int shapeFor(int nodes, int shape) {
    return nodes == 4 ? 5 : nodes == 6 ? 7 : nodes == 8 ? 8 : shape;
}

/// The packets of a file with so many nodes and elements, in their order: the constructor writes
/// those before the first node.
class PacketWriter {
  public:
    PacketWriter(text::Writer& file, int nodes, int elements);
    void node(int id, const Point& point);
    void element(int id, int shape, const Block& nodes);
    void end();

  private:
    text::Writer& file_;
    int nodes_;
    int elements_;
    bool isFirst_ = true;
};

/// See the exported `CKVO_PATWriter_Bridge`, whose calls end here.
class CPATWriter {
  public:
    virtual ~CPATWriter() = default;

    void SetFilePath(const char* path);
    void SetNodeCount(int count);
    void SetNodeArray() noexcept;
    void AddNode(int index, double x, double y, double z);
    void SetElemCount(int count);
    bool SetElemArray() noexcept;
    void AddElement(int index, int count, const int* nodes);
    bool WriteFile() const noexcept;

  private:
    void writePackets(text::Writer& file) const;

    const char* filePath = nullptr;
    int nodeCount = 0;
    text::ZeroedArray<Point> nodePoints;
    int elemCount = 0;
    text::ZeroedArray<Block> elemNodes;
    text::ZeroedArray<int> elemShapes;
    // Rows that the arrays have, 0 while there are none: the counts may be set anew at any time.
    int nodeRows = 0;
    int elemRows = 0;
};

}  // namespace kvocaeio::patran
