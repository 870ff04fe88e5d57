/// The files that a user means by naming a folder.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace kvocaeio::host {

struct FileList {
    std::vector<std::string> files;  ///< paths, sorted
    std::size_t passedOver = 0;      ///< other files that are in the folder
};

/// The files in `folder` and its subfolders that are of a known format: by their content, or else
/// by their extension, so that a damaged file is reported too. With `designs` the Cadence designs
/// instead.
FileList filesIn(const std::string& folder, bool designs);

}  // namespace kvocaeio::host
