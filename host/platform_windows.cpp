/// The host's platform calls on Windows. They reach the library's output because both use the one C
/// runtime of the process.
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <windows.h>

#include "platform.h"

namespace kvocaeio::host {

namespace {
constexpr int kStandardOutput = 1;
constexpr int kStandardError = 2;
}  // namespace

// The C runtime keeps the three descriptors for itself, also where the streams are closed.
void holdStandardStreams() {}

bool isFolder(const char* path) {
    struct _stat64 status {};
    return _stat64(path, &status) == 0 && (status.st_mode & _S_IFDIR) != 0;
}

std::size_t terminalColumns() {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info))
        return 0;
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

bool isErrorTerminal() {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

Terminal::Terminal() {
    constexpr DWORD kEscapeSequences = 4;  // ENABLE_VIRTUAL_TERMINAL_PROCESSING
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    if (!GetConsoleMode(output, &mode_))
        return;
    if (!SetConsoleMode(output, mode_ | kEscapeSequences))
        mode_ = 0;
    codePage_ = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
}

Terminal::~Terminal() {
    if (codePage_ != 0)
        SetConsoleOutputCP(codePage_);
    if (mode_ != 0)
        SetConsoleMode(GetStdHandle(STD_OUTPUT_HANDLE), mode_);
}

int redirectStandardOutput(PrintTarget target) {
    std::fflush(stdout);
    const int saved = _dup(kStandardOutput);
    if (target == PrintTarget::kStandardError) {
        _dup2(kStandardError, kStandardOutput);
        return saved;
    }
    const int null = _open("NUL", _O_WRONLY | _O_TEXT);
    _dup2(null, kStandardOutput);
    _close(null);
    return saved;
}

void restoreStandardOutput(int token) {
    std::fflush(stdout);
    if (token < 0)
        return;  // there was no standard output
    _dup2(token, kStandardOutput);
    _close(token);
}

}  // namespace kvocaeio::host
