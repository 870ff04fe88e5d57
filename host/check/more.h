/// Findings that were found more than once.
#pragma once

#include <string>

#include "import_findings.h"

namespace kvocaeio::host {

/// How often `finding` was found beside its first place, and where: " (and 4 more, next at lines
/// 14, 20, 31)"; empty where that is all.
std::string moreOf(const ImportFinding& finding);

}  // namespace kvocaeio::host
