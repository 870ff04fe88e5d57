/// The forms in which `kvocaeio check` writes its findings.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "import_findings.h"

namespace kvocaeio::host {

/// One file that was checked.
struct CheckedFile {
    std::string name;         ///< as the command line or the folder names it
    std::string_view format;  ///< as a code for programs; empty where it is not known
    /// With those findings alone that are to be listed.
    ImportFindings import;
    Tally tally;  ///< of all findings
};

/// Sums over all files.
struct CheckTotals {
    long long& countOf(const std::string& name) {
        for (auto& [known, count] : counts)
            if (known == name)
                return count;
        return counts.emplace_back(name, 0).second;
    }

    std::size_t files = 0;
    std::size_t failed = 0;      ///< files that could not be read
    std::size_t passedOver = 0;  ///< files in folders that are of no known format
    Tally tally;                 ///< of all findings
    Tally hidden;                ///< of those that are not listed
    std::vector<std::pair<std::string, long long>> counts;  ///< what was read, by name
};

/// Writes to standard output, file by file: nothing is kept of a file that has been added.
class CheckOutput {
  public:
    virtual ~CheckOutput() = default;
    virtual void add(const CheckedFile& file) = 0;
    virtual void finish(const CheckTotals& totals) = 0;
};

/// Lines as compilers write them; `brief` leaves out what to do.
std::unique_ptr<CheckOutput> textOutput(bool brief);
/// One document, in the layout of docs/check.schema.json.
std::unique_ptr<CheckOutput> jsonOutput();
/// An object for each finding, in the same layout.
std::unique_ptr<CheckOutput> jsonLinesOutput();
/// One document of the Static Analysis Results Interchange Format, version 2.1.0.
std::unique_ptr<CheckOutput> sarifOutput();

}  // namespace kvocaeio::host
