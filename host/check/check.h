/// The command `kvocaeio check`.
#pragma once

#include <string>
#include <vector>

namespace kvocaeio::host {

struct CheckOptions {
    std::vector<std::string> files;    ///< files, and folders whose files are meant
    std::string reportsFolder;         ///< reports of a design to check beside `files`
    std::string minSeverity = "note";  ///< findings below are not listed
    bool brief = false;                ///< without what to do
    bool json = false;                 ///< one JSON document instead of text
    bool jsonLines = false;            ///< one JSON object for each finding, a line each
    bool sarif = false;                ///< one SARIF document
    bool tidy = false;                 ///< decks are tidied before they are read
    bool verbose = false;  ///< the library's progress lines go to standard error, else nowhere
};

/// Writes what is lost or changed of each file to standard output, while it goes. Returns the exit
/// code: 0, nothing or notes; 1, warnings; 2, errors; 3, a file could not be read.
int runCheck(const CheckOptions& options);

}  // namespace kvocaeio::host
