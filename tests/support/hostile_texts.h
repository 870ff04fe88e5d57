/// Texts and files that nobody would wish for, and the time that a reader may take for them.
#pragma once

#include <atomic>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "support/files.h"
#include "support/process_meter.h"

namespace kvocaeio::test {

/// Fails the test when the process takes more processor time in its life than is allowed: how busy
/// the machine is does not matter.
class TimeLimit {
  public:
    /// Generous: a quadratic reader of these texts takes minutes.
    explicit TimeLimit(double seconds = 20.0) : seconds_(seconds) {}
    ~TimeLimit() { EXPECT_LT(processorSeconds() - start_, seconds_); }
    TimeLimit(const TimeLimit&) = delete;
    TimeLimit& operator=(const TimeLimit&) = delete;

  private:
    const double seconds_;
    const double start_ = processorSeconds();
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

/// A file that is written all the time, from state to state; every other one is cut to its length.
class RestlessFile {
  public:
    explicit RestlessFile(std::vector<std::string> states) : states_(std::move(states)) {
        folder_.write("restless", states_[0]);
        writer_ = std::thread([this] { write(); });
    }
    ~RestlessFile() {
        done_ = true;
        writer_.join();
    }
    RestlessFile(const RestlessFile&) = delete;
    RestlessFile& operator=(const RestlessFile&) = delete;

    const std::string& path() const { return path_; }

  private:
    void write() const {
        for (std::size_t round = 0; !done_; ++round) {
            std::fstream file(path_, std::ios::binary | std::ios::in | std::ios::out);
            const std::string& state = states_[round % states_.size()];
            file.write(state.data(), static_cast<std::streamsize>(state.size()));
            file.close();
            if (round % 2 == 0)
                std::filesystem::resize_file(path_, state.size());
        }
    }

    const std::vector<std::string> states_;
    const TempFolder folder_;
    const std::string path_ = folder_.file("restless");
    std::atomic<bool> done_{false};
    std::thread writer_;
};

}  // namespace kvocaeio::test
