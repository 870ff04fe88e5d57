/// What the library asks of the system beyond the standard library; one source file per platform.
/// (`openFile` and `deleteFile` of file.h are in those files, too.)
#pragma once

#include <cstdint>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>

#include "text/file.h"

namespace kvocaeio::text {

/// The separator that the library puts between a folder and a name.
extern const char kPathSeparator;

/// The characters that separate folders in a path handed in.
extern const std::string_view kPathSeparators;

/// Length of the drive at the front of `path` ("C:"); 0 where the system knows no drives.
std::size_t driveLength(std::string_view path) noexcept;

/// Whether `path` exists and may be read and written.
bool isReadableAndWritable(const char* path) noexcept;

/// What becomes of line feeds that are written: they stay, or become the system's line ends.
enum class LineEnds { kAsWritten, kOfSystem };

/// Creates a file to be written. Null, with the reason in `errno`, where that fails or where
/// anything is there already.
File createFile(const std::filesystem::path& path, LineEnds lineEnds) noexcept;

/// Takes room for `size` bytes of a new file, which then has that size, where the system can do so
/// at once: it writes faster then. False, with the reason in `errno`, where there is no such room.
bool reserveFile(std::FILE* file, std::uintmax_t size) noexcept;

/// Converts a time to the local one. False where the system cannot. Unlike `std::localtime` it
/// leaves a result that the host has alone, and threads may call it side by side.
bool toLocalTime(std::time_t time, std::tm& local) noexcept;

/// Makes `narrow` the UTF-8 form of `wide`. False where it has none, as for half a surrogate pair.
bool toUtf8(std::wstring_view wide, std::string& narrow);

/// Starts a program, hidden where programs have windows, and waits for its end without a time
/// limit. It has the caller's environment, working directory and descriptors (handles that may be
/// inherited). Off Windows the command line is split at its blanks, without a shell and without
/// quoting, and its first word is sought in the PATH where it names no folder. Nothing tells
/// whether the program could be started or how it ended.
void runProgram(const std::string& commandLine);

/// The same by a wide command line: UTF-8 encoded off Windows, where one without a UTF-8 form
/// starts nothing.
void runProgram(const std::wstring& commandLine);

}  // namespace kvocaeio::text
