/// Files opened and deleted by narrow and by wide path; open ones are closed when their holder goes
/// away.
#pragma once

#include <cstdio>
#include <memory>

namespace kvocaeio::text {

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

/// An open file, or null. Owns the stream.
using File = std::unique_ptr<std::FILE, CloseFile>;

/// Opens `path` with a mode of the C library ("rb", "r+b", "w"). Null on failure and for a null
/// path. What is to be read must be a regular file: pipes, sockets, devices and folders cannot be
/// opened. The descriptor is never one of the standard streams, even where the host has closed
/// these. Does not throw.
File openFile(const char* path, const char* mode) noexcept;

/// The same by a wide path: UTF-8 encoded off Windows, handed to the system as it is on Windows.
/// A wide path that has no UTF-8 form cannot be opened.
File openFile(const wchar_t* path, const char* mode) noexcept;

/// Goes back to the beginning, for another pass. False where the file has none to go back to.
bool rewindFile(std::FILE* file) noexcept;

/// Deletes a file, no folder. Nothing tells whether it could be deleted.
void deleteFile(const char* path) noexcept;

/// The same by a wide path, with the meaning that it has for `openFile`.
void deleteFile(const wchar_t* path) noexcept;

}  // namespace kvocaeio::text
