/// Files of an import that somebody may listen to: who listens learns the file's name, and why it
/// cannot be opened or read again.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string_view>

#include "text/file.h"
#include "text/findings.h"

namespace kvocaeio::text {

/// Opens as `openFile` does. Findings are of this file from here on.
File openFile(const char* path, const char* mode, const Listener& listener) noexcept;
File openFile(const wchar_t* path, const char* mode, const Listener& listener) noexcept;

/// Notes `finding` of the present file, with the system's words for the C library's `error`, or
/// `otherwise` where that is 0.
void noteFailure(Findings& findings, FileFinding finding, int error, std::size_t line = 0,
                 std::string_view otherwise = {}) noexcept;

/// Rewinds as `rewindFile` does.
bool rewindFile(std::FILE* file, const Listener& listener) noexcept;

}  // namespace kvocaeio::text
