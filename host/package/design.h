/// Cadence designs, which an extraction tool opens, and the reports that it leaves.
#pragma once

#include <memory>
#include <string>

#include "formats.h"

namespace kvocaeio::host {

extern const Format kCadenceFormat;

struct ToolRequest {
    std::string tool;    ///< as `findTool` takes it
    std::string folder;  ///< for the tool's command files and reports
    double seconds;      ///< that all its runs may take together
};

/// Opens the design at `path` with an extraction tool. Where design, tool or folder do not exist,
/// it throws `FileError` before anything is deleted.
std::unique_ptr<FileReport> readDesign(const std::string& path, const ToolRequest& request,
                                       PrintTarget progress);

/// Reads the reports that a tool has left in `folder`.
std::unique_ptr<FileReport> readDesignReports(const std::string& folder, PrintTarget progress);

/// The bodies in these reports, for another format.
PackageScene takeDesignReports(const std::string& folder, const MeshRequest& request);

/// The same for `check`.
ImportFindings checkDesignReports(const std::string& folder, PrintTarget progress,
                                  CKVOImportReport& report);

}  // namespace kvocaeio::host
