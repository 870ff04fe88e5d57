/// A flat list of text cells that takes little more memory than their text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "package/chunked_list.h"

namespace kvocaeio {

/// Cells in the order in which they were appended, in chunks of equal number. A report may have a
/// cell per byte, so a cell costs four bytes beside its text.
class CellList {
  public:
    std::size_t size() const {
        return chunks_.empty() ? 0
                               : (chunks_.size() - 1) * kChunkLength + chunks_.back().ends.size();
    }

    /// Appends a cell of at most a line's length.
    void append(std::string_view cell) {
        if (size() == chunks_.size() * kChunkLength) {
            if (!chunks_.empty())
                chunks_.back().text.shrink_to_fit();
            chunks_.emplace_back();
        }
        Chunk& chunk = chunks_.back();
        chunk.ends.reserve(kChunkLength);
        chunk.text.append(cell);
        chunk.ends.push_back(static_cast<std::uint32_t>(chunk.text.size()));
    }

    /// For an index that is known to be inside. The text stays until the next `append`.
    std::string_view operator[](std::size_t index) const {
        const Chunk& chunk = chunks_[index / kChunkLength];
        const std::size_t place = index % kChunkLength;
        const std::size_t start = place == 0 ? 0 : chunk.ends[place - 1];
        return std::string_view(chunk.text).substr(start, chunk.ends[place] - start);
    }

    /// For any index. Throws the error of `throwBadSubscript`.
    std::string_view at(std::size_t index) const {
        if (index >= size())
            throwBadSubscript();
        return (*this)[index];
    }

  private:
    static constexpr std::size_t kChunkLength = 1024;

    struct Chunk {
        std::string text;
        std::vector<std::uint32_t> ends;  // of each cell in `text`; the first one starts at 0
    };

    std::vector<Chunk> chunks_;
};

}  // namespace kvocaeio
