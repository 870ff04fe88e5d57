/// The host's platform calls on Linux and its kin.
#include <cstdio>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform.h"

namespace kvocaeio::host {

void holdStandardStreams() {
    // Opened for reading, so that a report on a closed standard output is noticed as not written.
    int descriptor = ::open("/dev/null", O_RDONLY);
    while (descriptor >= 0 && descriptor <= STDERR_FILENO)
        descriptor = ::open("/dev/null", O_RDONLY);
    if (descriptor >= 0)
        ::close(descriptor);
}

bool isFolder(const char* path) {
    struct stat status {};
    return ::stat(path, &status) == 0 && S_ISDIR(status.st_mode);
}

std::size_t terminalColumns() {
    winsize size{};
    if (::isatty(STDOUT_FILENO) == 0)
        return 0;
    constexpr std::size_t kUsual = 80;
    return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col != 0 ? size.ws_col
                                                                              : kUsual;
}

bool isErrorTerminal() {
    return ::isatty(STDERR_FILENO) != 0;
}

Terminal::Terminal() = default;
Terminal::~Terminal() = default;

int redirectStandardOutput(PrintTarget target) {
    std::fflush(stdout);
    const int saved = ::dup(STDOUT_FILENO);
    if (target == PrintTarget::kStandardError) {
        ::dup2(STDERR_FILENO, STDOUT_FILENO);
        return saved;
    }
    const int null = ::open("/dev/null", O_WRONLY);
    ::dup2(null, STDOUT_FILENO);
    ::close(null);
    return saved;
}

void restoreStandardOutput(int token) {
    std::fflush(stdout);
    ::dup2(token, STDOUT_FILENO);
    ::close(token);
}

}  // namespace kvocaeio::host
