/// The data lines of the tidy deck.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "tidy/output_file.h"

namespace kvocaeio::tidy::abaqus {

/// A data line in the making, in a buffer that holds the longest one.
class LineWriter {
  public:
    /// Data lines of the format hold at most so many fields; further ones go to the next line.
    static constexpr std::size_t kMostFields = 16;

    explicit LineWriter(OutputFile& out) : out_(out) {}

    /// Adds a field.
    LineWriter& integer(std::int64_t value);
    /// With the fewest digits from which the value can be read again.
    LineWriter& real(double value);
    /// Adds text as it stands, of at most 100 characters.
    LineWriter& text(std::string_view value);
    /// Writes the line.
    void finish();

    bool isFull() const { return fields_ == kMostFields; }
    bool isEmpty() const { return end_ == buffer_.data(); }

  private:
    void beginField();

    OutputFile& out_;
    std::array<char, 1024> buffer_;
    char* end_ = buffer_.data();
    std::size_t fields_ = 0;
};

}  // namespace kvocaeio::tidy::abaqus
