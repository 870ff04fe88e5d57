/// Files of the C library, closed by themselves.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace kvocaeio::host {

using CFile = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

/// Null, with the reason in `errno`, where `path` cannot be opened.
CFile openFile(const std::string& path, const char* mode);

/// Why the system's latest call failed, for the user.
std::string systemFailure();

}  // namespace kvocaeio::host
