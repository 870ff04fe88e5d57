/// What the floors of all writers share: numbers formatted into a block, blocks into a file.
#pragma once

#include <charconv>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

#include "bench/floor_reading.h"

namespace kvocaeio::bench {

/// Puts fields into a block, without a check for room. A block is written out where a card starts
/// behind its nominal size, so that no card may be larger than the rest.
class FloorWriter {
  public:
    explicit FloorWriter(std::FILE* file)
        : file_(file),
          block_(std::make_unique_for_overwrite<char[]>(kBlockSize + kLargestCard)),
          position_(block_.get()) {
        std::setvbuf(file, nullptr, _IONBF, 0);
    }
    ~FloorWriter() { writeBlock(); }
    FloorWriter(const FloorWriter&) = delete;
    FloorWriter& operator=(const FloorWriter&) = delete;

    void startCard() {
        ++counts_.lines;
        if (position_ >= block_.get() + kBlockSize)
            writeBlock();
    }

    void text(std::string_view value) {
        std::memcpy(position_, value.data(), value.size());
        position_ += value.size();
    }
    void integer(int value, int width) {
        char digits[16];
        ++counts_.integers;
        field(digits, std::to_chars(digits, std::end(digits), value).ptr, width);
    }
    void fixed(double value, int decimals, int width) {
        real(value, std::chars_format::fixed, decimals, width);
    }
    void scientific(double value, int decimals, int width) {
        real(value, std::chars_format::scientific, decimals, width);
    }

    FloorCounts counts() const { return counts_; }

  private:
    static constexpr std::size_t kBlockSize = std::size_t{1} << 20;
    static constexpr std::size_t kLargestCard = 4096;

    void real(double value, std::chars_format format, int decimals, int width) {
        char digits[64];
        ++counts_.reals;
        char* const end = std::to_chars(digits, std::end(digits), value, format, decimals).ptr;
        if (format == std::chars_format::scientific)
            for (char* digit = digits; digit != end; ++digit)
                if (*digit == 'e')
                    *digit = 'E';
        field(digits, end, width);
    }
    void field(const char* first, const char* last, int width) {
        const auto size = static_cast<int>(last - first);
        for (; width > size; --width)
            *position_++ = ' ';
        text({first, static_cast<std::size_t>(size)});
    }
    void writeBlock() {
        std::fwrite(block_.get(), 1, static_cast<std::size_t>(position_ - block_.get()), file_);
        position_ = block_.get();
    }

    std::FILE* file_;
    std::unique_ptr<char[]> block_;
    char* position_;
    FloorCounts counts_;
};

}  // namespace kvocaeio::bench
