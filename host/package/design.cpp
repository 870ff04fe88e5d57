/// Cadence designs, read through an extraction tool or from its reports.
#include "package/design.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "c_file.h"
#include "clean_name.h"
#include "input_file.h"
#include "mesh_checks.h"
#include "package/report.h"
#include "timed.h"
#include "tool_run.h"
#include <kvocaeio/package.h>
#include <kvocaeio/report.h>

namespace kvocaeio::host {

namespace {

constexpr std::array<std::string_view, 3> kExtensions = {".mcm", ".sip", ".brd"};

std::unique_ptr<PackageReport> import(CKVOCadenceReader& reader, const std::string& path,
                                      const std::string& folder, PrintTarget progress) {
    reader.SetTempFilePath(folder.c_str());
    CKVOImportReport findings;
    bool isImported = false;
    std::string failure;
    const double seconds = timed(progress, [&] {
        try {
            isImported = reader.ImportCadenceFile(path.c_str(), &findings);
            if (!isImported)
                failure = "no reports of a design that can be used are in " + cleanName(folder) +
                          " (CmdFile1.txt, CmdFile2.txt, and CmdFile3.txt of a .sip design)";
        } catch (const std::out_of_range&) {
            failure =
                "the report CmdFile2.txt in " + cleanName(folder) + " has no job line of two cells";
        }
    });
    auto report = std::make_unique<PackageReport>(reader, PackageSource::kCadence);
    report->importSeconds = seconds;
    report->imported.take(findings, isImported);
    report->find(Finding::Level::kError, "no-usable-reports", failure.empty() ? 0 : 1, failure);
    return report;
}

void requireFolder(const std::string& folder) {
    if (!isFolder(folder.c_str()))
        throw FileError("the folder " + cleanName(folder) + " does not exist", "no-such-folder");
}

void requireDesign(const std::string& path) {
    refuseSpecialFile(path);
    if (!openFile(path, "rb"))
        throw FileError("cannot be read: " + systemFailure());
}

/// What went wrong in the tool's runs, for the user; empty where nothing did. Runs that the time
/// did not suffice for are told once.
std::string failureOf(const std::vector<ToolRun>& runs) {
    std::string failure;
    for (const ToolRun& run : runs) {
        const std::string how = asText(run);
        const bool isGood = run.end == ToolRun::End::kExited && run.code == 0;
        if (!isGood && failure.find(how) == std::string::npos)
            failure += (failure.empty() ? "the extraction tool " : " and then ") + how;
    }
    return failure;
}

/// What went wrong in the tool's runs is why the import failed, where it did.
void addToolFailure(const std::string& failure, FileReport& report) {
    if (failure.empty())
        return;
    const auto consequence =
        std::ranges::find(report.findings, Finding::Level::kError, &Finding::level);
    const bool isAlone = consequence == report.findings.end();
    const std::string text = isAlone ? failure : failure + "; " + consequence->text;
    if (!isAlone)
        report.findings.erase(consequence);
    report.find(Finding::Level::kError, "tool-failed", 1, text);
}

std::unique_ptr<FileReport> refuse(const std::string&, PrintTarget) {
    throw FileError("is a design that needs an extraction tool: give --tool and --temp",
                    "needs-tool");
}

PackageScene refuseScene(const std::string&, const MeshRequest&) {
    throw FileError(
        "is a design that needs an extraction tool: run kvocaeio info with --tool and --temp, then "
        "take that folder with its reports instead of the design",
        "needs-tool");
}

ImportFindings refuseCheck(const std::string&, PrintTarget, CKVOImportReport&) {
    throw FileError(
        "is a design that needs an extraction tool: run kvocaeio info with --tool and "
        "--temp, then kvocaeio check --reports with that folder",
        "needs-tool");
}

}  // namespace

std::unique_ptr<FileReport> readDesign(const std::string& path, const ToolRequest& request,
                                       PrintTarget progress) {
    requireFolder(request.folder);
    requireDesign(path);
    const auto tool = findTool(request.tool);
    if (!tool)
        throw FileError(
            "the extraction tool " + cleanName(request.tool) + " does not exist or is no program",
            "no-such-tool");
    CKVOCadenceReader reader;
    ToolWatch watch(*tool, request.seconds);
    reader.SetExeFilePath(watch.launcher().c_str());
    std::unique_ptr<PackageReport> report = import(reader, path, request.folder, progress);
    addToolFailure(failureOf(watch.runs()), *report);
    return report;
}

ImportFindings checkDesignReports(const std::string& folder, PrintTarget progress,
                                  CKVOImportReport& report) {
    requireFolder(folder);
    CKVOCadenceReader reader;
    reader.SetTempFilePath(folder.c_str());
    bool isImported = false;
    timed(progress, [&] {
        try {
            isImported = reader.ImportCadenceFile("", &report);
        } catch (const std::out_of_range&) {
            // The report holds the reason.
        }
    });
    ImportFindings findings;
    findings.take(report, isImported);
    return findings;
}

PackageScene takeDesignReports(const std::string& folder, const MeshRequest& request) {
    refuseNormalised(request.normalised);
    requireFolder(folder);
    CKVOCadenceReader reader;
    const std::unique_ptr<PackageReport> report = import(reader, "", folder, request.progress);
    const auto failure =
        std::ranges::find(report->findings, Finding::Level::kError, &Finding::level);
    if (failure != report->findings.end() && !request.force)
        throw FileError(failure->text, failure->code);
    PackageScene scene = takeScene(reader, PackageSource::kCadence);
    scene.imported = std::move(report->imported);
    return scene;
}

std::unique_ptr<FileReport> readDesignReports(const std::string& folder, PrintTarget progress) {
    requireFolder(folder);
    CKVOCadenceReader reader;
    return import(reader, "", folder, progress);
}

// A design is a database: nothing in its first bytes is known, its extension must do.
const Format kCadenceFormat = {
    .name = "Cadence design",
    .code = "cadence",
    .extensions = kExtensions,
    .recognises = [](std::string_view) { return false; },
    .read = refuse,
    .check = refuseCheck,
    .takeScene = refuseScene,
};

}  // namespace kvocaeio::host
