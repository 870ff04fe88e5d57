/// A flat list of text cells that takes little more memory than their text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "package/chunked_list.h"

namespace kvocaeio::package {

/// Cells of at most a line's length, in the order in which they were appended, in chunks of equal
/// number. A report may have a cell per byte, so a cell costs four bytes beside its text.
class CellList {
  public:
    std::size_t size() const { return size_; }

    void append(std::string_view cell) {
        Chunk& chunk = chunkWithRoom();
        chunk.characters.append(cell);
        chunk.ends[size_++ % kChunkLength] = static_cast<std::uint32_t>(chunk.characters.size());
    }

    /// Appends the cells of a line, each of which is ended by `delimiter`: what stands after the
    /// last one belongs to none. Returns their number.
    std::size_t appendLine(std::string_view line, char delimiter) {
        const std::size_t before = size_;
        line = line.substr(0, line.rfind(delimiter) + 1);
        while (!line.empty())
            line.remove_prefix(fillChunk(line, delimiter));
        return size_ - before;
    }

    /// For an index that is known to be inside. The text stays until the list changes.
    std::string_view operator[](std::size_t index) const {
        const Chunk& chunk = chunks_[index / kChunkLength];
        const std::size_t place = index % kChunkLength;
        const std::size_t start = place == 0 ? 0 : chunk.ends[place - 1];
        return {chunk.characters.data() + start, chunk.ends[place] - start};
    }

    /// For any index. Throws the error of `throwBadSubscript`.
    std::string_view at(std::size_t index) const {
        if (index >= size_)
            throwBadSubscript();
        return (*this)[index];
    }

  private:
    static constexpr std::size_t kChunkLength = 1024;

    struct Chunk {
        std::string characters;
        std::vector<std::uint32_t> ends;  // of each cell in `characters`; the first one starts at 0
    };

    Chunk& chunkWithRoom() {
        if (size_ == chunks_.size() * kChunkLength) {
            if (!chunks_.empty())
                chunks_.back().characters.shrink_to_fit();
            chunks_.push_back({{}, std::vector<std::uint32_t>(kChunkLength)});
        }
        return chunks_.back();
    }

    // Appends the first cells of a line, as many as the chunk has room for. Returns how many
    // characters they are with their delimiters.
    std::size_t fillChunk(std::string_view cells, char delimiter) {
        Chunk& chunk = chunkWithRoom();
        std::size_t end = chunk.characters.size();
        chunk.characters.resize(end + cells.size());
        char* const to = chunk.characters.data();
        std::uint32_t* const ends = chunk.ends.data();
        const std::size_t first = size_ % kChunkLength;
        std::size_t place = first;
        std::size_t read = 0;
        // Every character is written at the end of the text and the end of the text to the cell in
        // hand, since no processor foresees where the delimiters stand.
        for (; read < cells.size() && place < kChunkLength; ++read) {
            const auto isDelimiter = static_cast<std::size_t>(cells[read] == delimiter);
            to[end] = cells[read];
            ends[place] = static_cast<std::uint32_t>(end);
            end += 1 - isDelimiter;
            place += isDelimiter;
        }
        chunk.characters.resize(end);
        size_ += place - first;
        return read;
    }

    std::vector<Chunk> chunks_;
    std::size_t size_ = 0;
};

}  // namespace kvocaeio::package
