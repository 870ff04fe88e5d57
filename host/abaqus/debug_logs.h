/// The logs that an import leaves in a folder "debug" beside a deck.
#pragma once

#include <array>
#include <filesystem>
#include <string>

#include "file_report.h"

namespace kvocaeio::host {

class DebugLogs {
  public:
    /// To be made before the import of the deck at `path`.
    explicit DebugLogs(const std::string& path);

    /// Adds a note on the logs that were written since then, if any.
    void addTo(std::vector<Finding>& findings) const;

  private:
    std::array<std::string, 2> paths_;
    std::filesystem::file_time_type start_ = std::filesystem::file_time_type::clock::now();
};

}  // namespace kvocaeio::host
