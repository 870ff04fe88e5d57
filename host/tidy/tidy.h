/// The command `kvocaeio tidy`.
#pragma once

#include <string>

namespace kvocaeio::host {

struct TidyOptions {
    std::string source;  ///< "-" is standard input
    std::string target;
    std::string mapFile;  ///< for the table of origins; empty for none
    bool report = false;  ///< list the findings
    bool json = false;    ///< say what was done as JSON
    bool quiet = false;   ///< say nothing of a success
};

/// Rewrites the deck `source` as `target`. Says on standard output what was done, and on standard
/// error why it failed; the target is as it was then. True when nothing failed.
bool runTidyCommand(const TidyOptions& options);

}  // namespace kvocaeio::host
