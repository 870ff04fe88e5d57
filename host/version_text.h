/// Versions in words.
#pragma once

#include <string>

namespace kvocaeio::host {

/// Version of the library that is loaded: "0.1.0".
std::string libraryVersion();

/// Version of the program and, in a second line, of the library, which may be another one.
std::string versionText();

}  // namespace kvocaeio::host
