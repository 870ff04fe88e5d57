/// The holder of a file being read, which one import opens again and again.
#pragma once

#include "text/listened_file.h"

namespace kvocaeio::package {

/// A file by its narrow or its wide path. The paths are borrowed. A stream that is still open is
/// closed when the holder goes away.
struct InputFile {
    explicit InputFile(const char* path) : narrowPath(path) {}
    explicit InputFile(const wchar_t* path) : widePath(path) {}

    /// False when there is no path or the file cannot be opened. (The lines' reader does the work
    /// of the text mode itself, the same on every platform, so the stream is a binary one.)
    bool open(const text::Listener& listener) {
        stream = narrowPath != nullptr ? text::openFile(narrowPath, "rb", listener)
                                       : text::openFile(widePath, "rb", listener);
        return stream != nullptr;
    }
    void close() { stream.reset(); }

    const char* narrowPath = nullptr;
    const wchar_t* widePath = nullptr;
    text::File stream;
};

}  // namespace kvocaeio::package
