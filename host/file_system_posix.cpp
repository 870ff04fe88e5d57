/// Files and signals on Linux and its kin.
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "file_system.h"

namespace kvocaeio::host {

namespace {

std::error_code lastError() {
    return {errno, std::generic_category()};
}

FileIdentity identityIn(const struct stat& status) {
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
}

mode_t modeOfNewFiles() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

class Descriptor {
  public:
    Descriptor(const std::string& path, int flags) : number_(::open(path.c_str(), flags)) {}
    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return number_; }

  private:
    int number_;
};

/// What ends a program that does not handle it, but for what a debugger should see.
constexpr std::array kEndingSignals = {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE, SIGXCPU, SIGXFSZ};

std::array<std::atomic<const char*>, 8> doomed{};

void removeDoomedAndEnd(int signal) {
    removeForInterruption();
    ::raise(signal);  // which has its default action again
}

void handleSignals() {
    for (const int signal : kEndingSignals) {
        struct sigaction action {};
        ::sigaction(signal, nullptr, &action);
        if (action.sa_handler != SIG_DFL)
            continue;  // whoever started the program wants it ignored
        action.sa_handler = removeDoomedAndEnd;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        ::sigaction(signal, &action, nullptr);
    }
}

void changeSignalMask(int how) {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : kEndingSignals)
        sigaddset(&signals, signal);
    ::sigprocmask(how, &signals, nullptr);
}

}  // namespace

FileKind kindOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        return FileKind::kMissing;
    switch (status.st_mode & S_IFMT) {
        case S_IFREG:
            return FileKind::kFile;
        case S_IFDIR:
            return FileKind::kFolder;
        case S_IFIFO:
            return FileKind::kPipe;
        case S_IFSOCK:
            return FileKind::kSocket;
        default:
            return FileKind::kDevice;
    }
}

std::optional<FileIdentity> identityOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return identityIn(status);
}

std::optional<FileIdentity> identityOfStandardInput() {
    struct stat status {};
    if (::fstat(STDIN_FILENO, &status) != 0)
        return std::nullopt;
    return identityIn(status);
}

std::string followLinks(const std::string& path) {
    constexpr int kMostLinks = 40;  // as many as the system follows
    std::filesystem::path place = path;
    std::error_code ignored;
    for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(place, ignored); ++i)
        place = place.parent_path() / std::filesystem::read_symlink(place, ignored);
    return place.string();
}

std::filesystem::path standardPath(const std::string& path) {
    return path;
}

std::string narrowPath(const std::filesystem::path& path) {
    return path.native();
}

std::size_t folderLength(const std::string& path) {
    return path.rfind('/') + 1;
}

bool isWritable(const std::string& path) {
    return ::access(path.c_str(), W_OK) == 0;
}

std::error_code createFile(const std::string& path) {
    const int descriptor = ::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
    if (descriptor < 0)
        return lastError();
    ::close(descriptor);
    return {};
}

std::error_code createFolder(const std::string& path) {
    return ::mkdir(path.c_str(), 0700) == 0 ? std::error_code() : lastError();
}

void removePath(const std::string& path) {
    if (::unlink(path.c_str()) != 0)
        ::rmdir(path.c_str());
}

std::string temporaryFolder() {
    const char* folder = std::getenv("TMPDIR");
    return folder != nullptr && *folder != '\0' ? std::string(folder) + "/" : "/tmp/";
}

std::error_code replaceFile(const std::string& target, const std::string& file) {
    const Descriptor descriptor(file, O_RDWR | O_CLOEXEC);
    if (descriptor.number() < 0 || ::fsync(descriptor.number()) != 0)
        return lastError();
    struct stat old {};
    const bool isThere = ::stat(target.c_str(), &old) == 0;
    // Only the superuser may give a file away; it stays with its new owner else.
    if (isThere && ::fchown(descriptor.number(), old.st_uid, old.st_gid) != 0)
        errno = 0;
    if (::fchmod(descriptor.number(), isThere ? old.st_mode & 07777 : modeOfNewFiles()) != 0)
        return lastError();
    return ::rename(file.c_str(), target.c_str()) == 0 ? std::error_code() : lastError();
}

void makeStandardInputBinary() {}

void removeOnInterruption(const std::string& path) {
    static const bool handled = (handleSignals(), true);
    static_cast<void>(handled);
    for (auto& slot : doomed) {
        const char* none = nullptr;
        if (slot.compare_exchange_strong(none, path.c_str()))
            return;
    }
}

void keepOnInterruption(const std::string& path) {
    for (auto& slot : doomed) {
        const char* known = path.c_str();
        slot.compare_exchange_strong(known, nullptr);
    }
}

void removeForInterruption() {
    for (auto slot = doomed.rbegin(); slot != doomed.rend(); ++slot) {
        const char* path = slot->load();
        if (path != nullptr && ::unlink(path) != 0)
            ::rmdir(path);
    }
}

namespace {
thread_local int pauses = 0;  // one may be made while another lives
}

InterruptionPause::InterruptionPause() {
    if (pauses++ == 0)
        changeSignalMask(SIG_BLOCK);
}

InterruptionPause::~InterruptionPause() {
    if (--pauses == 0)
        changeSignalMask(SIG_UNBLOCK);
}

}  // namespace kvocaeio::host
