/// The files that a user means by naming a file or a folder.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace kvocaeio::host {

struct FileList {
    std::vector<std::string> files;  ///< paths, sorted
    std::size_t passedOver = 0;      ///< other files that are in the folder
};

/// `path`, or where it names a folder, the files in it and its subfolders that are of a known
/// format: by their content, or else by their extension, so that a damaged file is reported too.
/// With `designs` the Cadence designs instead. Throws `FileError` for a folder without any.
FileList filesOf(const std::string& path, bool designs);

}  // namespace kvocaeio::host
