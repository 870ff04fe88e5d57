/// A digest of results that are too many to be written down.
#pragma once

#include <cstdint>
#include <string_view>

namespace kvocaeio::test {

/// FNV-1a over all bytes added.
class Digest {
  public:
    void add(std::string_view bytes) {
        for (const char byte : bytes)
            value_ = (value_ ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
    }
    std::uint64_t value() const { return value_; }

  private:
    std::uint64_t value_ = 0xCBF29CE484222325;
};

}  // namespace kvocaeio::test
