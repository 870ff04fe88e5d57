/// A line on the terminal while something takes long.
#pragma once

#include <chrono>
#include <condition_variable>
#include <iosfwd>
#include <mutex>
#include <string>
#include <thread>

namespace kvocaeio::host {

/// Says what is being done and for how many seconds, from the first second on and once a second.
/// The line goes away with its holder, so that nothing is left among what is printed.
class ProgressLine {
  public:
    /// Shows "kvocaeio: WHAT, 3 s" on standard error where that is a terminal, else nothing.
    explicit ProgressLine(std::string what);
    /// The same on `out`, in other steps than seconds.
    ProgressLine(std::string what, std::ostream& out, std::chrono::milliseconds step);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

  private:
    void start();
    void show();

    std::string what_;
    std::ostream& out_;
    std::chrono::milliseconds step_;
    std::mutex mutex_;
    std::condition_variable ended_;
    bool isOver_ = false;
    std::thread thread_;
};

}  // namespace kvocaeio::host
