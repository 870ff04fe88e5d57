/// Cadence designs, which an extraction tool opens, and the reports that it leaves.
#pragma once

#include <memory>
#include <string>

#include "platform.h"
#include "report.h"

namespace kvocaeio::host {

/// Opens the design at `path` with the tool at `tool`, whose files go into `folder`.
std::unique_ptr<Report> readDesign(const std::string& path, const std::string& tool,
                                   const std::string& folder, PrintTarget progress);

/// Reads the reports that a tool has left in `folder`.
std::unique_ptr<Report> readDesignReports(const std::string& folder, PrintTarget progress);

}  // namespace kvocaeio::host
