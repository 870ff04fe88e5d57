/// What the library asks of a POSIX system.
#include <algorithm>
#include <cerrno>
#include <exception>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include "text/file.h"
#include "text/platform.h"

namespace kvocaeio::text {

namespace {

// Appends the UTF-8 form of `code`; false for what is no Unicode character.
bool appendUtf8(std::string& text, char32_t code) {
    if (code >= 0x110000 || (code >= 0xD800 && code < 0xE000))
        return false;
    auto add = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    auto tail = [&add, code](int shift) { add(0x80 | (code >> shift & 0x3F)); };
    if (code < 0x80) {
        add(code);
    } else if (code < 0x800) {
        add(0xC0 | code >> 6);
        tail(0);
    } else if (code < 0x10000) {
        add(0xE0 | code >> 12);
        tail(6);
        tail(0);
    } else {
        add(0xF0 | code >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
    return true;
}

constexpr int kFirstOwnDescriptor = STDERR_FILENO + 1;

// A pipe that nobody writes to is refused at once, and not waited for.
int openRegular(const char* path, int access) {
    const int descriptor = open(path, access | O_NONBLOCK | O_NOCTTY);
    struct stat status {};
    if (descriptor >= 0 && fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
        fcntl(descriptor, F_SETFL, access);
        return descriptor;
    }
    if (descriptor >= 0)
        close(descriptor);
    return -1;
}

// Takes over a descriptor.
File fileOf(int descriptor, const char* mode) {
    File file(descriptor < 0 ? nullptr : fdopen(descriptor, mode));
    if (file == nullptr && descriptor >= 0)
        close(descriptor);
    return file;
}

}  // namespace

const char kPathSeparator = '/';
const std::string_view kPathSeparators = "/";

bool toUtf8(std::wstring_view wide, std::string& narrow) {
    narrow.clear();
    return std::ranges::all_of(
        wide, [&](wchar_t code) { return appendUtf8(narrow, static_cast<char32_t>(code)); });
}

std::size_t driveLength(std::string_view) noexcept {
    return 0;
}

bool isReadableAndWritable(const char* path) noexcept {
    return access(path, R_OK | W_OK) == 0;
}

File openFile(const char* path, const char* mode) noexcept {
    if (path == nullptr)
        return nullptr;
    const std::string_view letters = mode;
    File file =
        letters.front() == 'r'
            ? fileOf(openRegular(path,
                                 letters.find('+') != std::string_view::npos ? O_RDWR : O_RDONLY),
                     mode)
            : File(std::fopen(path, mode));
    if (file != nullptr && fileno(file.get()) < kFirstOwnDescriptor)
        file = fileOf(fcntl(fileno(file.get()), F_DUPFD, kFirstOwnDescriptor), mode);
    return file;
}

File openFile(const wchar_t* path, const char* mode) noexcept {
    if (path == nullptr)
        return nullptr;
    try {
        std::string narrow;
        return toUtf8(path, narrow) ? openFile(narrow.c_str(), mode) : nullptr;
    } catch (const std::exception&) {
        return nullptr;
    }
}

File createFile(const std::filesystem::path& path, LineEnds) noexcept {
    constexpr mode_t kAnyone = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL, kAnyone);
    const bool wasCreated = descriptor >= 0;
    if (descriptor >= 0 && descriptor < kFirstOwnDescriptor) {
        const int higher = fcntl(descriptor, F_DUPFD, kFirstOwnDescriptor);
        close(descriptor);
        descriptor = higher;
    }
    File file = fileOf(descriptor, "wb");
    if (file == nullptr && wasCreated)
        unlink(path.c_str());
    return file;
}

bool reserveFile(std::FILE* file, std::uintmax_t size) noexcept {
#if defined(__linux__)
    const bool isReserved = std::in_range<off_t>(size) && size > 0 &&
                            fallocate(fileno(file), 0, 0, static_cast<off_t>(size)) == 0;
    return isReserved || errno != ENOSPC;
#else
    static_cast<void>(file);
    static_cast<void>(size);
    return true;
#endif
}

void deleteFile(const char* path) noexcept {
    unlink(path);
}

void deleteFile(const wchar_t* path) noexcept {
    try {
        std::string narrow;
        if (toUtf8(path, narrow))
            deleteFile(narrow.c_str());
    } catch (const std::exception&) {  // what cannot be deleted stays
    }
}

bool rewindFile(std::FILE* file) noexcept {
    return std::fseek(file, 0, SEEK_SET) == 0;
}

bool toLocalTime(std::time_t time, std::tm& local) noexcept {
    tzset();  // `localtime_r` need not look whether the host has changed its zone
    return localtime_r(&time, &local) != nullptr;
}

void runProgram(const std::string& commandLine) {
    std::string words = commandLine;
    std::vector<char*> arguments;
    bool inside = false;
    for (char& c : words) {
        if (c == ' ')
            c = '\0';
        else if (!inside)
            arguments.push_back(&c);
        inside = c != '\0';
    }
    arguments.push_back(nullptr);
    pid_t child = 0;
    if (arguments.front() == nullptr ||
        posix_spawnp(&child, arguments.front(), nullptr, nullptr, arguments.data(), environ) != 0)
        return;
    // Where the host ignores its children's ends, or waits for them elsewhere, this fails as soon
    // as the child has ended.
    while (waitpid(child, nullptr, 0) == -1 && errno == EINTR) {
    }
}

void runProgram(const std::wstring& commandLine) {
    std::string narrow;
    if (toUtf8(commandLine, narrow))
        runProgram(narrow);
}

}  // namespace kvocaeio::text
