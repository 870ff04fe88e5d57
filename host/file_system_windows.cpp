/// Files and console events on Windows.
#include <algorithm>
#include <array>
#include <cstring>
#include <fcntl.h>
#include <io.h>
#include <mutex>
#include <windows.h>

#include "file_system.h"

namespace kvocaeio::host {

namespace {

std::error_code lastError() {
    return {static_cast<int>(GetLastError()), std::system_category()};
}

class Handle {
  public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() {
        if (valid())
            CloseHandle(handle_);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    bool valid() const { return handle_ != INVALID_HANDLE_VALUE && handle_ != nullptr; }
    HANDLE get() const { return handle_; }

  private:
    HANDLE handle_;
};

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Opened for `access`, folders too.
Handle openExisting(const std::string& path, DWORD access) {
    return Handle(CreateFileA(path.c_str(), access, kShareAll, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

std::optional<FileIdentity> identityOfHandle(HANDLE file) {
    BY_HANDLE_FILE_INFORMATION information{};
    if (GetFileType(file) != FILE_TYPE_DISK || !GetFileInformationByHandle(file, &information))
        return std::nullopt;
    return FileIdentity{
        information.dwVolumeSerialNumber,
        std::uint64_t{information.nFileIndexHigh} << 32 | information.nFileIndexLow};
}

std::string fullPath(const std::string& path) {
    std::string full(32768, '\0');
    full.resize(
        GetFullPathNameA(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

/// What a rename onto a file that others have open for a moment fails with.
bool isBusy(DWORD error) {
    return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
}

/// Gives `file` the permissions and attributes of `target`, as far as the file system has them.
void copyPermissions(const std::string& target, const std::string& file) {
    std::array<char, 65536> access;  // as long as an access list can be
    DWORD needed = 0;
    if (GetFileSecurityA(target.c_str(), DACL_SECURITY_INFORMATION, access.data(), access.size(),
                         &needed))
        SetFileSecurityA(file.c_str(), DACL_SECURITY_INFORMATION, access.data());
    SetFileAttributesA(file.c_str(), GetFileAttributesA(target.c_str()));
}

std::array<const char*, 8> doomed{};
std::recursive_mutex doomedMutex;
HANDLE mainThread = nullptr;

/// Closes this process's own handles of a file, which cannot be removed while they are open.
void closeHandlesOf(const FileIdentity& identity) {
    constexpr std::uintptr_t kHandles = 0x4000;  // they are counted in steps of four
    // A look at standard input would wait for the end of a read that goes on there.
    const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    for (std::uintptr_t number = 4; number < kHandles; number += 4) {
        const auto handle = reinterpret_cast<HANDLE>(number);
        if (handle != input && identityOfHandle(handle) == identity)
            CloseHandle(handle);
    }
}

BOOL WINAPI removeDoomed(DWORD) {
    removeForInterruption();
    return FALSE;  // what comes next ends the process
}

void handleConsoleEvents() {
    DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &mainThread, 0,
                    FALSE, DUPLICATE_SAME_ACCESS);
    SetConsoleCtrlHandler(removeDoomed, TRUE);
}

}  // namespace

FileKind kindOf(const std::string& path) {
    const std::string full = fullPath(path);
    constexpr std::string_view kPipes = "\\\\.\\pipe\\";
    constexpr std::string_view kDevices = "\\\\.\\";
    if (_strnicmp(full.c_str(), kPipes.data(), kPipes.size()) == 0)
        return FileKind::kPipe;
    if (full.starts_with(kDevices))
        return FileKind::kDevice;
    const DWORD attributes = GetFileAttributesA(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return FileKind::kMissing;
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FileKind::kFolder : FileKind::kFile;
}

std::optional<FileIdentity> identityOf(const std::string& path) {
    const Handle file = openExisting(path, 0);
    return file.valid() ? identityOfHandle(file.get()) : std::nullopt;
}

std::optional<FileIdentity> identityOfStandardInput() {
    return identityOfHandle(GetStdHandle(STD_INPUT_HANDLE));
}

std::string followLinks(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return path;
    const Handle file = openExisting(path, 0);
    std::string place(32768, '\0');
    place.resize(
        GetFinalPathNameByHandleA(file.get(), place.data(), static_cast<DWORD>(place.size()), 0));
    return place.empty() ? path : place;
}

std::filesystem::path standardPath(const std::string& path) {
    const auto size = static_cast<int>(path.size());
    std::wstring wide(path.size(), L'\0');
    const int length = MultiByteToWideChar(CP_ACP, 0, path.data(), size, wide.data(), size);
    wide.resize(static_cast<std::size_t>(length));
    return wide;
}

std::string narrowPath(const std::filesystem::path& path) {
    const std::wstring& wide = path.native();
    const auto size = static_cast<int>(wide.size());
    constexpr int kMostBytes = 3;  // of a character, in any code page
    std::string narrow(kMostBytes * wide.size(), '\0');
    const int length = WideCharToMultiByte(CP_ACP, 0, wide.data(), size, narrow.data(),
                                           kMostBytes * size, nullptr, nullptr);
    narrow.resize(static_cast<std::size_t>(length));
    return narrow;
}

std::size_t folderLength(const std::string& path) {
    return path.find_last_of("\\/:") + 1;
}

bool isWritable(const std::string& path) {
    return _access(path.c_str(), 2) == 0;
}

std::error_code createFile(const std::string& path) {
    const Handle file(CreateFileA(path.c_str(), GENERIC_WRITE, kShareAll, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    return file.valid() ? std::error_code() : lastError();
}

std::error_code createFolder(const std::string& path) {
    return CreateDirectoryA(path.c_str(), nullptr) ? std::error_code() : lastError();
}

void removePath(const std::string& path) {
    if (!DeleteFileA(path.c_str()))
        RemoveDirectoryA(path.c_str());
}

std::string temporaryFolder() {
    std::string folder(MAX_PATH + 1, '\0');
    folder.resize(GetTempPathA(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
}

std::error_code replaceFile(const std::string& target, const std::string& file) {
    {
        const Handle handle = openExisting(file, GENERIC_WRITE);
        if (!handle.valid() || !FlushFileBuffers(handle.get()))
            return lastError();
    }
    if (kindOf(target) == FileKind::kFile)
        copyPermissions(target, file);
    constexpr int kTries = 100;
    constexpr DWORD kMilliseconds = 20;
    for (int i = 0; i < kTries; ++i) {
        if (MoveFileExA(file.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING))
            return {};
        if (!isBusy(GetLastError()))
            break;
        Sleep(kMilliseconds);
    }
    return lastError();
}

void makeStandardInputBinary() {
    _setmode(0, _O_BINARY);
}

void removeOnInterruption(const std::string& path) {
    const std::lock_guard lock(doomedMutex);
    const auto slot = std::find(doomed.begin(), doomed.end(), nullptr);
    if (slot != doomed.end())
        *slot = path.c_str();
}

void keepOnInterruption(const std::string& path) {
    const std::lock_guard lock(doomedMutex);
    std::replace(doomed.begin(), doomed.end(), path.c_str(), static_cast<const char*>(nullptr));
}

void removeForInterruption() {
    doomedMutex.lock();  // for good: the process is about to end
    SuspendThread(mainThread);
    for (auto path = doomed.rbegin(); path != doomed.rend(); ++path) {
        if (*path == nullptr || DeleteFileA(*path) || RemoveDirectoryA(*path))
            continue;
        if (const std::optional<FileIdentity> identity = host::identityOf(*path))
            closeHandlesOf(*identity);
        DeleteFileA(*path);
    }
}

InterruptionPause::InterruptionPause() {
    doomedMutex.lock();
    if (mainThread == nullptr)
        handleConsoleEvents();
}

InterruptionPause::~InterruptionPause() {
    doomedMutex.unlock();
}

}  // namespace kvocaeio::host
