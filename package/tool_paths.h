/// The paths of the extraction tool and of its files.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "text/platform.h"

namespace kvocaeio::package {

/// All of them in one form, narrow or wide.
template <class String>
struct ToolPaths {
    String exe;
    String temp;
    std::array<String, 3> commandFiles;
    std::array<String, 3> dataFiles;
};

/// Sets the folder, and by it the paths of the files.
template <class String>
void setTempPath(ToolPaths<String>& paths, const String& folder) {
    using Char = typename String::value_type;
    const auto setLeaves = [&](auto& files, std::string_view name) {
        for (std::size_t i = 0; i < files.size(); ++i) {
            files[i] = folder;
            files[i] += static_cast<Char>(text::kPathSeparator);
            files[i].append(name.begin(), name.end());
            files[i] += static_cast<Char>('1' + i);
            files[i].append({'.', 't', 'x', 't'});
        }
    };
    paths.temp = folder;
    setLeaves(paths.commandFiles, "CmdFile");
    setLeaves(paths.dataFiles, "CadenceData");
}

}  // namespace kvocaeio::package
