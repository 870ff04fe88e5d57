/// Calls into the library, timed, with what it prints sent elsewhere.
#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "platform.h"
#include "progress_line.h"

namespace kvocaeio::host {

/// Sends what the library prints elsewhere, as long as it lives.
class Redirection {
  public:
    explicit Redirection(PrintTarget target) : token_(redirectStandardOutput(target)) {}
    ~Redirection() { restoreStandardOutput(token_); }
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;

  private:
    int token_;
};

/// Runs `work` with the library's output sent to `progress` and returns the seconds that it took.
/// Where they are several, a line on the terminal tells them, unless that is where `progress` goes.
template <class Work>
double timed(PrintTarget progress, const Work& work) {
    const Redirection redirection(progress);
    std::optional<ProgressLine> line;
    if (progress == PrintTarget::kNowhere)
        line.emplace("reading");
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// As people write it: "less than 1 ms", "12 ms", "1.5 s", "2 min 5 s".
std::string secondsText(double seconds);

}  // namespace kvocaeio::host
