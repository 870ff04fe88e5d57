/// Texts that nobody would wish for, and the time that a reader may take for them.
#pragma once

#include <chrono>
#include <cstddef>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "support/files.h"

namespace kvocaeio::test {

/// Fails the test when more time passes in its life than is allowed.
class TimeLimit {
  public:
    /// Generous: a quadratic reader of these texts takes minutes.
    explicit TimeLimit(double seconds = 20.0) : seconds_(seconds) {}
    ~TimeLimit() {
        const auto time = std::chrono::steady_clock::now() - start_;
        EXPECT_LT(std::chrono::duration<double>(time).count(), seconds_);
    }
    TimeLimit(const TimeLimit&) = delete;
    TimeLimit& operator=(const TimeLimit&) = delete;

  private:
    const double seconds_;
    const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

inline std::string repeated(std::string_view text, int count) {
    std::string out;
    out.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        out += text;
    return out;
}

/// Writes a file of `begin` and then 100 MB of `filler`, without a single line end behind `begin`,
/// and gives its path.
inline std::string writeLongLine(const TempFolder& folder, std::string_view begin, char filler) {
    const std::string path = folder.file("long");
    std::ofstream out(path, std::ios::binary);
    out << begin;
    const std::string chunk(1'000'000, filler);
    for (int megabyte = 0; megabyte < 100; ++megabyte)
        out << chunk;
    return path;
}

}  // namespace kvocaeio::test
