/// The thread that shows the line.
#include "progress_line.h"

#include <iostream>
#include <system_error>
#include <utility>

#include "platform.h"

namespace kvocaeio::host {

ProgressLine::ProgressLine(std::string what)
    : what_(std::move(what)), out_(std::cerr), step_(std::chrono::seconds(1)) {
    if (isErrorTerminal())
        start();
}

ProgressLine::ProgressLine(std::string what, std::ostream& out, std::chrono::milliseconds step)
    : what_(std::move(what)), out_(out), step_(step) {
    start();
}

ProgressLine::~ProgressLine() {
    {
        const std::lock_guard lock(mutex_);
        isOver_ = true;
    }
    ended_.notify_one();
    if (thread_.joinable())
        thread_.join();
}

void ProgressLine::start() {
    try {
        thread_ = std::thread([this] { show(); });
    } catch (const std::system_error&) {
        // No thread, no line.
    }
}

void ProgressLine::show() {
    const auto begin = std::chrono::steady_clock::now();
    std::unique_lock lock(mutex_);
    int steps = 0;
    while (!ended_.wait_until(lock, begin + (steps + 1) * step_, [&] { return isOver_; })) {
        ++steps;
        out_ << "\rkvocaeio: " + what_ + ", " + std::to_string(steps) + " s" << std::flush;
    }
    if (steps != 0)
        out_ << "\r\033[K" << std::flush;
}

}  // namespace kvocaeio::host
