/// Cadence designs, read through an extraction tool or from its reports.
#include "cadence_format.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "format.h"
#include "package_report.h"
#include "timed.h"
#include <kvocaeio/package.h>

namespace kvocaeio::host {

namespace {

constexpr std::array<std::string_view, 3> kExtensions = {".mcm", ".sip", ".brd"};

// The library reads the reports where it has put the tool's command files.
constexpr std::array<const char*, 3> kReports = {"CmdFile1.txt", "CmdFile2.txt", "CmdFile3.txt"};

/// No cell of a report, and so no name, is longer than the largest report.
std::size_t nameRoom(const std::string& folder) {
    std::uintmax_t room = 0;
    for (const char* name : kReports) {
        std::error_code error;
        const std::uintmax_t size = std::filesystem::file_size(folder + "/" + name, error);
        if (!error)
            room = std::max(room, size);
    }
    return std::max<std::size_t>(static_cast<std::size_t>(room), sizeof "SUBSTRATE") + 1;
}

std::unique_ptr<Report> import(CKVOCadenceReader& reader, const std::string& path,
                               const std::string& folder, PrintTarget progress) {
    if (!isFolder(folder.c_str()))
        throw FileError("the folder " + folder + " does not exist");
    reader.SetTempFilePath(folder.c_str());
    std::string failure;
    const double seconds = timed(progress, [&] {
        try {
            if (!reader.ImportCadenceFile(path.c_str()))
                failure = "no reports of a design that can be used are in " + folder +
                          " (CmdFile1.txt, CmdFile2.txt, and CmdFile3.txt of a .sip design)";
        } catch (const std::out_of_range&) {
            failure = "the report CmdFile2.txt in " + folder + " has no job line";
        }
    });
    auto report =
        std::make_unique<PackageReport>(reader, PackageSource::kCadence, nameRoom(folder));
    report->seconds = seconds;
    report->importFailure = failure;
    return report;
}

std::unique_ptr<Report> refuse(const std::string&, PrintTarget) {
    throw FileError("is a design that needs an extraction tool: give --tool and --temp");
}

}  // namespace

std::unique_ptr<Report> readDesign(const std::string& path, const std::string& tool,
                                   const std::string& folder, PrintTarget progress) {
    CKVOCadenceReader reader;
    reader.SetExeFilePath(tool.c_str());
    return import(reader, path, folder, progress);
}

std::unique_ptr<Report> readDesignReports(const std::string& folder, PrintTarget progress) {
    CKVOCadenceReader reader;
    return import(reader, "", folder, progress);
}

// A design is a database: nothing in its first bytes is known, its extension must do.
const Format kCadenceFormat = {"Cadence design", kExtensions,
                               [](std::string_view) { return false; }, refuse, nullptr};

}  // namespace kvocaeio::host
