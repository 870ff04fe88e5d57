/// What the host asks of the system about files beyond the standard library; one source file per
/// platform. Paths are in the system's narrow encoding.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

namespace kvocaeio::host {

enum class FileKind { kMissing, kFile, kFolder, kPipe, kSocket, kDevice };

/// What `path` names; links are followed.
FileKind kindOf(const std::string& path);

/// Two paths with the same identity name the same file, however they are spelled.
struct FileIdentity {
    std::uint64_t volume;
    std::uint64_t number;
    bool operator==(const FileIdentity&) const = default;
};

/// None for a file that is not there.
std::optional<FileIdentity> identityOf(const std::string& path);
std::optional<FileIdentity> identityOfStandardInput();

/// The path that `path` leads to where it is a symbolic link; it need not exist. Else `path`.
std::string followLinks(const std::string& path);

/// `path` for the standard library's calls, and back: on Windows it takes narrow text to be in the
/// encoding of the locale, which is not that of the system's calls.
std::filesystem::path standardPath(const std::string& path);
std::string narrowPath(const std::filesystem::path& path);

/// The length of the part of `path` that names its folder, the last separator included.
std::size_t folderLength(const std::string& path);

/// Whether the file at `path` may be written to.
bool isWritable(const std::string& path);

/// Creates an empty file that nobody else may read; an error where there is one already.
std::error_code createFile(const std::string& path);
/// Creates a folder that nobody else may look into; an error where there is one already.
std::error_code createFolder(const std::string& path);
/// Removes a file or an empty folder, if it is there.
void removePath(const std::string& path);

/// The folder for temporary files, with a separator at its end.
std::string temporaryFolder();

/// Waits until the disk has the file, and puts it in the place of `target`, which it replaces if it
/// is there. It then has the permissions of the old file, or those of any new file.
std::error_code replaceFile(const std::string& target, const std::string& file);

/// Passes on standard input byte by byte from now on.
void makeStandardInputBinary();

/// Has `path` removed where a signal or its kin ends the program: SIGINT, SIGTERM, a console that
/// is closed. The text must stay in its place until `keepOnInterruption`. At most eight at a time;
/// those that were given last are removed first.
void removeOnInterruption(const std::string& path);
void keepOnInterruption(const std::string& path);

/// Removes them now: what a handler of such events does last, in whatever thread. The thread that
/// named the paths does not go on where that would be in the way.
void removeForInterruption();

/// While it lives, no interruption ends the program.
class InterruptionPause {
  public:
    InterruptionPause();
    ~InterruptionPause();
    InterruptionPause(const InterruptionPause&) = delete;
    InterruptionPause& operator=(const InterruptionPause&) = delete;
};

}  // namespace kvocaeio::host
