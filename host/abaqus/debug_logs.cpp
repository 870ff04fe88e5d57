/// Which logs are newer than before.
#include "abaqus/debug_logs.h"

#include <system_error>

#include "clean_name.h"
#include "counted.h"
#include "file_system.h"

namespace kvocaeio::host {

namespace {

// As the library looks for it: for a path without a folder at the root.
std::string debugFolderOf(const std::string& path) {
    const std::size_t length = folderLength(path);
    return (length == 0 ? "/" : path.substr(0, length)) + "debug";
}

std::string sizeText(std::uintmax_t bytes) {
    constexpr std::uintmax_t kThousand = 1000;
    if (bytes < kThousand)
        return counted(static_cast<std::size_t>(bytes), "bytes");
    const bool isLarge = bytes >= kThousand * kThousand;
    const std::uintmax_t unit = isLarge ? kThousand * kThousand : kThousand;
    return std::to_string((bytes + unit / 2) / unit) + (isLarge ? " MB" : " kB");
}

}  // namespace

DebugLogs::Time DebugLogs::timeOf(const std::string& path) {
    std::error_code error;
    const auto time = std::filesystem::last_write_time(standardPath(path), error);
    return error ? Time() : Time(time);
}

DebugLogs::DebugLogs(const std::string& path) {
    const std::string folder = debugFolderOf(path);
    logs_[0].path = folder + "/InputAbaqus.log";
    logs_[1].path = folder + "/SortData.log";
    for (Log& log : logs_)
        log.before = timeOf(log.path);
}

void DebugLogs::addTo(FileReport& report) const {
    std::string words;
    std::vector<std::string> paths;
    for (const Log& log : logs_) {
        const Time after = timeOf(log.path);
        if (!after || after == log.before)
            continue;
        std::error_code error;
        words += (words.empty() ? "" : ", ") + cleanName(log.path) + " (" +
                 sizeText(std::filesystem::file_size(standardPath(log.path), error)) + ")";
        paths.push_back(log.path);
    }
    if (!paths.empty())
        report.findings.push_back({Finding::Level::kNote, "debug-logs", paths.size(),
                                   "logs written, since there is a folder \"debug\": " + words,
                                   paths});
}

}  // namespace kvocaeio::host
