/// The one place of the Abaqus readers' process-wide state.
#include "abaqus/import_state.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <mutex>
#include <utility>

#include "text/platform.h"

namespace kvocaeio::abaqus {

namespace {

// Ready before anything can ask for it: its members are initialised without running code.
struct {
    std::mutex mutex;  // of all that follows
    DebugFolder folder;
    std::string elapsedText;  // time of the latest import or sort; kept, shown nowhere
} state;

}  // namespace

std::string DebugFolder::sayDumpPath(std::string_view name) const {
    std::string file = path;
    file += text::kPathSeparator;
    file += name;
    std::printf("log file path = %s\n", file.c_str());
    return file;
}

text::File DebugFolder::openDump(std::string_view name) const {
    return text::openFile(sayDumpPath(name).c_str(), "w");
}

DebugFolder findDebugFolder(std::string_view deckPath) {
    const std::size_t drive = text::driveLength(deckPath);
    const std::size_t lastSeparator = deckPath.substr(drive).find_last_of(text::kPathSeparators);
    const std::size_t directoryEnd =
        lastSeparator == std::string_view::npos ? drive : drive + lastSeparator + 1;
    DebugFolder folder;
    // The directory part ends in a separator of its own, so that a second one follows it here.
    folder.path = deckPath.substr(0, directoryEnd);
    folder.path += text::kPathSeparator;
    folder.path += "debug";
    folder.usable = text::isReadableAndWritable(folder.path.c_str());
    std::printf("debug folder state = %d\n", folder.usable ? 0 : -1);
    if (folder.usable)
        folder.sayDumpPath(kImportLogName);
    return folder;
}

void publish(DebugFolder folder) noexcept {
    const std::lock_guard lock(state.mutex);
    state.folder = std::move(folder);
}

DebugFolder latestDebugFolder() {
    const std::lock_guard lock(state.mutex);
    return state.folder;
}

void publishTimeSince(Clock::time_point start) {
    const auto milliseconds = (Clock::now() - start) / std::chrono::milliseconds(1);
    const double taken = static_cast<double>(milliseconds) / 1000.0;
    std::array<char, 32> seconds;
    const auto [end, error] =
        std::to_chars(seconds.begin(), seconds.end(), taken, std::chars_format::fixed, 6);
    std::string elapsed = "elapsed time = " + std::string(seconds.begin(), end) + " s\n";
    const std::lock_guard lock(state.mutex);
    state.elapsedText = std::move(elapsed);
}

}  // namespace kvocaeio::abaqus
