/// What the library asks of Windows.
#include <exception>
#include <fcntl.h>
#include <io.h>
#include <string>
#include <sys/stat.h>
#include <wchar.h>
#include <windows.h>

#include "text/file.h"
#include "text/platform.h"

namespace kvocaeio::text {

namespace {

constexpr int kFirstOwnDescriptor = 3;

// Duplicates a descriptor of the standard streams until it is none of them.
int aboveStandard(int descriptor) {
    const int copy = _dup(descriptor);
    if (copy < 0 || copy >= kFirstOwnDescriptor)
        return copy;
    const int higher = aboveStandard(copy);
    _close(copy);
    return higher;
}

// What `openFile` makes of a stream just opened.
File checked(std::FILE* stream, const char* mode) {
    File file(stream);
    if (file == nullptr)
        return file;
    const int descriptor = _fileno(stream);
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
    if (*mode == 'r' && GetFileType(handle) != FILE_TYPE_DISK)
        return nullptr;
    if (descriptor < kFirstOwnDescriptor) {
        const int higher = aboveStandard(descriptor);
        file.reset(higher < 0 ? nullptr : _fdopen(higher, mode));
        if (file == nullptr && higher >= 0)
            _close(higher);
    }
    return file;
}

// Runs a program in a console of its own that is not shown. The system may write to `line`.
template <class StartupInfo, class String, class Create>
void run(String line, const Create& createProcess) {
    StartupInfo startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_HIDE;
    PROCESS_INFORMATION process{};
    if (createProcess(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NEW_CONSOLE, nullptr,
                      nullptr, &startup, &process) == 0)
        return;
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

}  // namespace

const char kPathSeparator = '\\';
const std::string_view kPathSeparators = "\\/";

bool toUtf8(std::wstring_view wide, std::string& narrow) {
    const int length = static_cast<int>(wide.size());
    const auto convert = [&](char* to, int size) {
        return WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, wide.data(), length, to, size,
                                   nullptr, nullptr);
    };
    narrow.resize(static_cast<std::size_t>(convert(nullptr, 0)));
    return wide.empty() || convert(narrow.data(), static_cast<int>(narrow.size())) > 0;
}

std::size_t driveLength(std::string_view path) noexcept {
    return path.size() >= 2 && path[1] == ':' ? 2 : 0;
}

bool isReadableAndWritable(const char* path) noexcept {
    return _access(path, 6) == 0;
}

File openFile(const char* path, const char* mode) noexcept {
    return path == nullptr ? nullptr : checked(std::fopen(path, mode), mode);
}

File openFile(const wchar_t* path, const char* mode) noexcept {
    if (path == nullptr)
        return nullptr;
    try {
        const std::wstring wideMode(mode, mode + std::char_traits<char>::length(mode));
        return checked(_wfopen(path, wideMode.c_str()), mode);
    } catch (const std::exception&) {
        return nullptr;
    }
}

File createFile(const std::filesystem::path& path, LineEnds lineEnds) noexcept {
    const bool isBinary = lineEnds == LineEnds::kAsWritten;
    const char* const mode = isBinary ? "wb" : "wt";
    const int descriptor =
        _wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | (isBinary ? _O_BINARY : _O_TEXT),
               _S_IREAD | _S_IWRITE);
    std::FILE* const stream = descriptor < 0 ? nullptr : _fdopen(descriptor, mode);
    if (stream == nullptr && descriptor >= 0)
        _close(descriptor);
    File file = checked(stream, mode);
    if (file == nullptr && descriptor >= 0)
        DeleteFileW(path.c_str());
    return file;
}

bool reserveFile(std::FILE*, std::uintmax_t) noexcept {
    return true;
}

void deleteFile(const char* path) noexcept {
    DeleteFileA(path);
}

void deleteFile(const wchar_t* path) noexcept {
    DeleteFileW(path);
}

bool rewindFile(std::FILE* file) noexcept {
    return _fseeki64(file, 0, SEEK_SET) == 0;
}

bool toLocalTime(std::time_t time, std::tm& local) noexcept {
    return localtime_s(&local, &time) == 0;
}

void runProgram(const std::string& commandLine) {
    run<STARTUPINFOA>(commandLine, CreateProcessA);
}

void runProgram(const std::wstring& commandLine) {
    run<STARTUPINFOW>(commandLine, CreateProcessW);
}

}  // namespace kvocaeio::text
