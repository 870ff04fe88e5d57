/// The logs that an import leaves in a folder "debug" beside a deck.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "file_report.h"

namespace kvocaeio::host {

class DebugLogs {
  public:
    /// To be made before the import of the deck at `path`.
    explicit DebugLogs(const std::string& path);

    /// Notes the logs that were written since then.
    void addTo(FileReport& report) const;

  private:
    using Time = std::optional<std::filesystem::file_time_type>;

    struct Log {
        std::string path;
        Time before;  ///< when it was last written to
    };

    static Time timeOf(const std::string& path);

    std::array<Log, 2> logs_;
};

}  // namespace kvocaeio::host
