/// What the library asks of Windows.
#include <exception>
#include <io.h>
#include <string>
#include <wchar.h>
#include <windows.h>

#include "text/file.h"
#include "text/platform.h"

namespace kvocaeio::text {

namespace {

// A console of the program's own that is not shown.
template <class StartupInfo>
StartupInfo hidden() {
    StartupInfo startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_HIDE;
    return startup;
}

void waitForEnd(const PROCESS_INFORMATION& process) {
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

}  // namespace

const char kPathSeparator = '\\';
const std::string_view kPathSeparators = "\\/";

std::size_t driveLength(std::string_view path) noexcept {
    return path.size() >= 2 && path[1] == ':' ? 2 : 0;
}

bool isReadableAndWritable(const char* path) noexcept {
    return _access(path, 6) == 0;
}

File openFile(const wchar_t* path, const char* mode) noexcept {
    if (path == nullptr)
        return nullptr;
    try {
        const std::wstring wideMode(mode, mode + std::char_traits<char>::length(mode));
        return File(_wfopen(path, wideMode.c_str()));
    } catch (const std::exception&) {
        return nullptr;
    }
}

void deleteFile(const char* path) noexcept {
    DeleteFileA(path);
}

void deleteFile(const wchar_t* path) noexcept {
    DeleteFileW(path);
}

void runProgram(const std::string& commandLine) {
    std::string line = commandLine;  // the system may write to it
    auto startup = hidden<STARTUPINFOA>();
    PROCESS_INFORMATION process{};
    if (CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NEW_CONSOLE, nullptr,
                       nullptr, &startup, &process) != 0)
        waitForEnd(process);
}

void runProgram(const std::wstring& commandLine) {
    std::wstring line = commandLine;
    auto startup = hidden<STARTUPINFOW>();
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NEW_CONSOLE, nullptr,
                       nullptr, &startup, &process) != 0)
        waitForEnd(process);
}

}  // namespace kvocaeio::text
