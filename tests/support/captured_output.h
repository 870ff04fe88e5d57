/// Standard output caught while the library speaks.
#pragma once

#include <filesystem>
#include <string>

namespace kvocaeio::test {

/// Sends standard output to a file from its construction to `text()` or its destruction.
class CapturedOutput {
  public:
    CapturedOutput();
    ~CapturedOutput();
    CapturedOutput(const CapturedOutput&) = delete;
    CapturedOutput& operator=(const CapturedOutput&) = delete;

    /// Ends the capture and returns what was printed, lines ended by LF on every platform.
    std::string text();

  private:
    void restore();

    const std::filesystem::path path_;
    int saved_;
};

}  // namespace kvocaeio::test
