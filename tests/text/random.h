/// Random numbers that are the same on every platform.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace kvocaeio::test {

/// The SplitMix64 sequence of a seed. Two draws in one expression may come in either order,
/// depending on the compiler.
class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t bits() {
        std::uint64_t z = state_ += 0x9E3779B97F4A7C15;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
        return z ^ (z >> 31);
    }
    /// From 0 to `count` - 1.
    std::size_t below(std::size_t count) {
        return static_cast<std::size_t>((bits() >> 11) % count);
    }
    /// True once in `count` times.
    bool oneIn(std::size_t count) { return below(count) == 0; }
    bool chance(unsigned percent) { return below(100) < percent; }
    const char* pick(std::initializer_list<const char*> list) {
        return list.begin()[below(list.size())];
    }

  private:
    std::uint64_t state_;
};

}  // namespace kvocaeio::test
