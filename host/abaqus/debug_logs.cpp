/// Which logs are as new as the import.
#include "abaqus/debug_logs.h"

#include <chrono>
#include <system_error>
#include <vector>

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

DebugLogs::DebugLogs(const std::string& path) {
    const std::string folder = debugFolderOf(path);
    paths_ = {folder + "/InputAbaqus.log", folder + "/SortData.log"};
}

void DebugLogs::addTo(std::vector<Finding>& findings) const {
    constexpr std::chrono::seconds kCoarseness{2};  // of the times of some file systems
    std::string words;
    std::vector<std::string> paths;
    for (const std::string& path : paths_) {
        std::error_code error;
        const std::filesystem::path log = standardPath(path);
        const auto time = std::filesystem::last_write_time(log, error);
        if (error || time + kCoarseness < start_)
            continue;
        words += (words.empty() ? "" : ", ") + cleanName(path) + " (" +
                 sizeText(std::filesystem::file_size(log, error)) + ")";
        paths.push_back(path);
    }
    if (!paths.empty())
        findings.push_back({Level::kNote, "debug-logs", paths.size(),
                            "logs written, since there is a folder \"debug\": " + words, paths});
}

}  // namespace kvocaeio::host
