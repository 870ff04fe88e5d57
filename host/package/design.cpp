/// Cadence designs, read through an extraction tool or from its reports.
#include "package/design.h"

#include <array>
#include <stdexcept>

#include "package/report.h"
#include "timed.h"
#include <kvocaeio/package.h>

namespace kvocaeio::host {

namespace {

constexpr std::array<std::string_view, 3> kExtensions = {".mcm", ".sip", ".brd"};

std::unique_ptr<FileReport> import(CKVOCadenceReader& reader, const std::string& path,
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
            failure = "the report CmdFile2.txt in " + folder + " has no job line of two cells";
        }
    });
    auto report = std::make_unique<PackageReport>(reader, PackageSource::kCadence);
    report->seconds = seconds;
    report->importFailure = failure;
    return report;
}

std::unique_ptr<FileReport> refuse(const std::string&, PrintTarget) {
    throw FileError("is a design that needs an extraction tool: give --tool and --temp");
}

}  // namespace

std::unique_ptr<FileReport> readDesign(const std::string& path, const std::string& tool,
                                       const std::string& folder, PrintTarget progress) {
    CKVOCadenceReader reader;
    reader.SetExeFilePath(tool.c_str());
    return import(reader, path, folder, progress);
}

std::unique_ptr<FileReport> readDesignReports(const std::string& folder, PrintTarget progress) {
    CKVOCadenceReader reader;
    return import(reader, "", folder, progress);
}

// A design is a database: nothing in its first bytes is known, its extension must do.
const Format kCadenceFormat = {"Cadence design", kExtensions,
                               [](std::string_view) { return false; }, refuse, nullptr};

}  // namespace kvocaeio::host
