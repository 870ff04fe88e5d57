/// What the library asks of the system beyond the standard library; one source file per platform.
/// (The wide `openFile` of file.h is in those files, too.)
#pragma once

#include <string_view>

namespace kvocaeio::text {

/// The separator that the library puts between a folder and a name.
extern const char kPathSeparator;

/// The characters that separate folders in a path handed in.
extern const std::string_view kPathSeparators;

/// Length of the drive at the front of `path` ("C:"); 0 where the system knows no drives.
std::size_t driveLength(std::string_view path) noexcept;

/// Whether `path` exists and may be read and written.
bool isReadableAndWritable(const char* path) noexcept;

}  // namespace kvocaeio::text
