/// The one place of the Abaqus readers' process-wide state.
#include "abaqus/import_state.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>

#include "text/platform.h"

namespace kvocaeio {

namespace {

int milliseconds() {
    using std::chrono::milliseconds;
    using std::chrono::steady_clock;
    const auto now = steady_clock::now().time_since_epoch();
    // Only differences count, and those of unsigned numbers survive the clock's running over.
    return static_cast<int>(
        static_cast<unsigned>(std::chrono::duration_cast<milliseconds>(now).count()));
}

}  // namespace

ImportState& importState() {
    static ImportState state;
    return state;
}

void startClock() {
    importState().clockStart = milliseconds();
}

void stopClock() {
    ImportState& state = importState();
    state.clockStop = milliseconds();
    const int elapsed = static_cast<int>(static_cast<unsigned>(state.clockStop) -
                                         static_cast<unsigned>(state.clockStart));
    std::array<char, 32> seconds;
    const auto [end, error] = std::to_chars(seconds.begin(), seconds.end(), elapsed / 1000.0,
                                            std::chars_format::fixed, 6);
    state.elapsedText = "elapsed time = " + std::string(seconds.begin(), end) + " s\n";
    state.clockStart = state.clockStop;
}

void findDebugFolder(std::string_view deckPath) {
    const std::size_t drive = text::driveLength(deckPath);
    const std::size_t lastSeparator = deckPath.substr(drive).find_last_of(text::kPathSeparators);
    const std::size_t directoryEnd =
        lastSeparator == std::string_view::npos ? drive : drive + lastSeparator + 1;
    // The directory part ends in a separator of its own, so that a second one follows it here.
    std::string folder(deckPath.substr(0, directoryEnd));
    folder += text::kPathSeparator;
    folder += "debug";
    const bool usable = text::isReadableAndWritable(folder.c_str());
    std::printf("debug folder state = %d\n", usable ? 0 : -1);
    ImportState& state = importState();
    state.debug = usable;
    if (usable) {
        state.debugFolder = folder;
        std::printf("log file path = %s\n", debugFilePath(kImportLogName).c_str());
    }
}

std::string debugFilePath(std::string_view name) {
    std::string path = importState().debugFolder;
    path += text::kPathSeparator;
    path += name;
    return path;
}

}  // namespace kvocaeio
