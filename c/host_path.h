/// Paths as hosts of the C interface have them.
#pragma once

#include <filesystem>
#include <string>

namespace kvocaeio::c_interface {

/// The path that a UTF-8 text names. Throws `std::system_error` where it names none.
std::filesystem::path pathOf(const char* utf8);

/// The reason in `errno`, or `otherwise` where that is 0.
std::string systemReason(const char* otherwise);

}  // namespace kvocaeio::c_interface
