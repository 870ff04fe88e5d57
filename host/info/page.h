/// What the reports on all formats have in common, as text and as JSON.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <span>
#include <string_view>

#include "file_report.h"
#include "text_table.h"

namespace kvocaeio::host {

/// As standard output and the environment ask for it: as wide as the terminal or COLUMNS, at least
/// 80 columns; coloured on a terminal, unless NO_COLOR says otherwise.
PageStyle styleOfOutput();

/// Sums over all files.
struct Totals {
    std::size_t files = 0;
    std::size_t failed = 0;
    std::size_t warnings = 0;
    std::size_t passedOver = 0;  ///< files in folders that are of no known format
    std::size_t importedFiles = 0;
    Tally imported;         ///< of the library's reports on them
    bool isTidied = false;  ///< whether these are on tidied decks

    /// Adds what was found in one file.
    void add(std::span<const Finding> findings);
};

/// "ok", "warnings" or "failed".
std::string_view statusOf(std::span<const Finding> findings);

/// Prints warnings and notes, a line or more each.
void printFindings(std::ostream& out, std::span<const Finding> findings, const PageStyle& style);

/// `words` in the colour of `level`.
std::string coloured(std::string_view words, Level level, const PageStyle& style);

/// "3 errors, 12 warnings, 1 note in 2 files"; "no findings in 1 file".
std::string summaryOf(const Tally& tally, std::size_t files, const PageStyle& style);

/// What `info` and `convert` end with where the library's report has warnings or errors; else
/// empty. `isTidied`: it is the report on tidied decks.
std::string closingLine(const Tally& tally, std::size_t files, bool isTidied,
                        const PageStyle& style);

/// Prints the sums, `closingLine` last.
void printTotals(std::ostream& out, const Totals& totals, const PageStyle& style);

Json asJson(std::span<const Finding> findings);

}  // namespace kvocaeio::host
