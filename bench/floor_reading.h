/// What the floors of all readers share: a file in blocks of whole lines, numbers into ready
/// arrays.
#pragma once

#include <charconv>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

namespace kvocaeio::bench {

/// What a floor got through, so that two floors can be seen to do the same work.
struct FloorCounts {
    std::size_t lines = 0;
    std::size_t integers = 0;
    std::size_t reals = 0;
};

/// Reads a file in blocks that end with a line.
class LineBlocks {
  public:
    explicit LineBlocks(std::FILE* file);

    /// Takes the next block; every line in it has its LF, also a file's last one. False at the end.
    bool next(const char*& first, const char*& last);

  private:
    std::FILE* file_;
    std::vector<char> buffer_;
    std::size_t size_ = 0;
    std::size_t taken_ = 0;
};

/// The start of the next line of a block.
inline const char* behindLine(const char* position, const char* end) {
    const auto size = static_cast<std::size_t>(end - position);
    return static_cast<const char*>(std::memchr(position, '\n', size)) + 1;
}

inline const char* behindBlanks(const char* position, const char* end) {
    while (position != end && *position == ' ')
        ++position;
    return position;
}

/// Arrays made at full size beforehand; their pages come as they are filled.
class NumberArrays {
  public:
    /// A number takes two bytes of the file at least.
    explicit NumberArrays(std::size_t fileSize)
        : integers_(std::make_unique_for_overwrite<int[]>(fileSize / 2 + 1)),
          reals_(std::make_unique_for_overwrite<double[]>(fileSize / 2 + 1)),
          integer_(integers_.get()),
          real_(reals_.get()) {}

    /// Converts the number behind the blanks at `position`, which ends ahead of `end`. Gives where
    /// it ends.
    const char* integer(const char* position, const char* end) {
        return std::from_chars(behindBlanks(position, end), end, *integer_++).ptr;
    }
    const char* real(const char* position, const char* end) {
        return std::from_chars(behindBlanks(position, end), end, *real_++).ptr;
    }

    /// Converts all fields of a width between `first` and `last`.
    template <std::size_t kWidth>
    void integerFields(const char* first, const char* last) {
        for (; static_cast<std::size_t>(last - first) >= kWidth; first += kWidth)
            integer(first, first + kWidth);
    }
    template <std::size_t kWidth>
    void realFields(const char* first, const char* last) {
        for (; static_cast<std::size_t>(last - first) >= kWidth; first += kWidth)
            real(first, first + kWidth);
    }

    int lastInteger() const { return integer_[-1]; }

    FloorCounts counts(std::size_t lines) const {
        return {lines, static_cast<std::size_t>(integer_ - integers_.get()),
                static_cast<std::size_t>(real_ - reals_.get())};
    }

  private:
    std::unique_ptr<int[]> integers_;
    std::unique_ptr<double[]> reals_;
    int* integer_;
    double* real_;
};

/// Takes a file through a floor: an object that is made for the file's size, gets the blocks with
/// `read(first, last)` and gives its `counts()`.
template <class Floor>
FloorCounts readBlocks(std::FILE* file, std::size_t fileSize) {
    Floor floor(fileSize);
    LineBlocks blocks(file);
    for (const char *first, *last; blocks.next(first, last);)
        floor.read(first, last);
    return floor.counts();
}

}  // namespace kvocaeio::bench
