/// The state that all imports of the process share: the debug folder and the clock. It is not
/// guarded, so two imports must not run at once.
#pragma once

#include <string>
#include <string_view>

namespace kvocaeio {

struct ImportState {
    bool debug = false;       ///< whether the latest import found a usable debug folder
    std::string debugFolder;  ///< its path; out of date while `debug` is false
    int clockStart = 0;       ///< milliseconds
    int clockStop = 0;        ///< milliseconds
    std::string elapsedText;  ///< time of the latest import or sort; kept, shown nowhere
};

ImportState& importState();

/// Notes the time at which an import or a sort starts.
void startClock();

/// Notes the time at which it ends, and formats the time between into the elapsed text.
void stopClock();

/// Tests for a folder named debug beside the deck at `deckPath`, says on standard output what it
/// found, and notes it in the shared state.
void findDebugFolder(std::string_view deckPath);

/// Path of the file `name` in the debug folder.
std::string debugFilePath(std::string_view name);

/// The leaf name of the import's own dump.
inline constexpr std::string_view kImportLogName = "InputAbaqus.log";

}  // namespace kvocaeio
