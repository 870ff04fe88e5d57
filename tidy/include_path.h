/// Where the file is that a deck includes.
#pragma once

#include <filesystem>
#include <string_view>

namespace kvocaeio::tidy {

struct IncludePath {
    std::filesystem::path path;  ///< empty where nothing has that name
    bool hasOtherCase = false;   ///< found under a name that differs in the case of its letters
};

/// Looks for `name`, as a deck has it, from `folder`. Either slash separates folders.
IncludePath findInclude(std::string_view name, const std::filesystem::path& folder);

/// Whether a file is outside a folder.
bool isOutside(const std::filesystem::path& path, const std::filesystem::path& folder);

/// A path as findings have it: in UTF-8 on Windows, as it is elsewhere.
std::string displayed(const std::filesystem::path& path);

}  // namespace kvocaeio::tidy
