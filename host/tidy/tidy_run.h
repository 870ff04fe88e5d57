/// One run of the library's tidy, as the commands need it.
#pragma once

#include <string>

#include "import_findings.h"

class CKVODeckTidy;

namespace kvocaeio::host {

/// What came of it.
struct TidyRun {
    bool good = false;
    ImportFindings findings;  ///< what tidy tells, with the names that the user knows
    std::string failureCode;  ///< of the finding that says why it failed; empty without one
    std::string failure;      ///< the same in words, with its place
};

/// Tidies the deck at `path`, which the user calls `name`, into the file `target`; where that is
/// empty the deck is only examined. `format` is one of `CKVODeckTidy::Format`.
TidyRun runTidy(CKVODeckTidy& tidy, const std::string& path, const std::string& name,
                const std::string& target, int format);

/// "2 warnings, 5 notes"; empty without findings.
std::string asText(const Tally& tally);

}  // namespace kvocaeio::host
