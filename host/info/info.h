/// The command `kvocaeio info`.
#pragma once

#include <string>
#include <vector>

namespace kvocaeio::host {

struct InfoOptions {
    std::vector<std::string> files;  ///< files, and folders whose files are meant
    std::string tool;                ///< extraction tool that opens `files`, which are designs then
    std::string toolFolder;          ///< for that tool's command files and reports
    double toolTimeout = 600.0;      ///< seconds that the tool's runs may take together
    std::string reportsFolder;       ///< reports of a design to read beside `files`; empty for none
    bool json = false;               ///< one JSON document instead of text
    bool jsonLines = false;          ///< one JSON document for each file, a line each
    bool tidy = false;               ///< decks are tidied before they are read
    bool verbose = false;  ///< the library's progress lines go to standard error, else nowhere
};

/// Writes a report of each file to standard output and a message on each failure to standard error.
/// True when nothing failed.
bool runInfo(const InfoOptions& options);

}  // namespace kvocaeio::host
