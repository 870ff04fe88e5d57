/// Numbers on their way into a page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "output_file.h"

namespace kvocaeio::host {

/// Writes numbers as bytes and these as base64, block by block. `finish` ends it.
class Base64Stream {
  public:
    explicit Base64Stream(OutputFile& file) : file_(file) {}

    void octet(std::uint8_t value);
    /// In single precision, the lowest byte first.
    void real(double value);
    /// Integers in rows of `width`, each as the difference to the one above it, or in the first row
    /// to 0; small differences take one byte: seven bits to a byte, the lowest first, the highest
    /// bit set where another byte follows, the sign in the lowest bit of all.
    void integers(std::span<const int> values, std::size_t width = 1);
    void finish();

  private:
    void flush();

    OutputFile& file_;
    std::vector<std::uint8_t> bytes_;
};

}  // namespace kvocaeio::host
