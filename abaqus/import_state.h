/// What imports and sorts leave to those after them in the process, whatever readers and threads
/// they are of: the debug folder and the clock. Each works with its own and publishes them under a
/// lock.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "text/file.h"

namespace kvocaeio::abaqus {

/// The folder that dumps are written into, if it is usable.
struct DebugFolder {
    bool usable = false;
    std::string path;

    /// Path of the dump `name` in the folder, which is also said on standard output.
    std::string sayDumpPath(std::string_view name) const;
    /// Opens that file, in place of an older one.
    text::File openDump(std::string_view name) const;
};

/// Tests for a folder named debug beside the deck at `deckPath`, and says on standard output what
/// it found.
DebugFolder findDebugFolder(std::string_view deckPath);

/// Makes `folder` the one that the latest import found.
void publish(DebugFolder folder) noexcept;

/// The one that the latest import found.
DebugFolder latestDebugFolder();

using Clock = std::chrono::steady_clock;

/// Publishes the time that an import or a sort has taken since `start`.
void publishTimeSince(Clock::time_point start);

/// The leaf name of the import's own dump.
inline constexpr std::string_view kImportLogName = "InputAbaqus.log";

}  // namespace kvocaeio::abaqus
