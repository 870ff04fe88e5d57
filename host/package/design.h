/// Cadence designs, which an extraction tool opens, and the reports that it leaves.
#pragma once

#include <memory>
#include <string>

#include "formats.h"

namespace kvocaeio::host {

extern const Format kCadenceFormat;

/// Opens the design at `path` with the tool at `tool`, whose files go into `folder`.
std::unique_ptr<FileReport> readDesign(const std::string& path, const std::string& tool,
                                       const std::string& folder, PrintTarget progress);

/// Reads the reports that a tool has left in `folder`.
std::unique_ptr<FileReport> readDesignReports(const std::string& folder, PrintTarget progress);

}  // namespace kvocaeio::host
