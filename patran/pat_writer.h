/// The mesh that a host adds item by item, and the file that is made of it.
#pragma once

#include <array>
#include <cstddef>

#include "text/format.h"
#include "text/zeroed_array.h"

namespace kvocaeio::patran {

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
    using Point = std::array<double, 3>;
    using Block = std::array<int, 8>;

    void writePackets(text::Writer& file) const;
    void writeNode(text::Writer& file, int index) const;
    void writeElement(text::Writer& file, int index) const;

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
