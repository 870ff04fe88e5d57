/// Standard output caught while the library speaks.
#pragma once

#include <atomic>
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

#include "support/files.h"

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace kvocaeio::test {

/// Sends standard output to a file from its construction to `text()` or its destruction.
class CapturedOutput {
  public:
    CapturedOutput() {
        std::fflush(stdout);
        saved_ = duplicate(1);
        std::FILE* file = std::fopen(path_.string().c_str(), "wb");
        redirect(descriptor(file), 1);
        std::fclose(file);
    }
    ~CapturedOutput() {
        restore();
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }
    CapturedOutput(const CapturedOutput&) = delete;
    CapturedOutput& operator=(const CapturedOutput&) = delete;

    /// Ends the capture and gives what was printed, lines ended by LF on every platform.
    std::string text() {
        restore();
        return readText(path_);
    }

  private:
#if defined(_WIN32)
    static int duplicate(int fd) {
        return _dup(fd);
    }
    static void redirect(int from, int to) {
        _dup2(from, to);
    }
    static int descriptor(std::FILE* file) {
        return _fileno(file);
    }
    static void close(int fd) {
        _close(fd);
    }
#else
    static int duplicate(int fd) {
        return ::dup(fd);
    }
    static void redirect(int from, int to) {
        ::dup2(from, to);
    }
    static int descriptor(std::FILE* file) {
        return ::fileno(file);
    }
    static void close(int fd) {
        ::close(fd);
    }
#endif
    void restore() {
        if (saved_ < 0)
            return;
        std::fflush(stdout);
        redirect(saved_, 1);
        close(std::exchange(saved_, -1));
    }

    /// One folder serves all captures: a folder takes far longer to remove than a file.
    static std::filesystem::path nextFile() {
        static const TempFolder folder;
        static std::atomic<unsigned> count{0};
        return folder.path() / ("stdout-" + std::to_string(count++));
    }

    const std::filesystem::path path_ = nextFile();
    int saved_ = -1;
};

}  // namespace kvocaeio::test
