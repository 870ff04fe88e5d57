/// What the library's report says of an import.
#pragma once

#include <array>
#include <cstddef>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <utility>
#include <vector>

class CKVOImportReport;

namespace kvocaeio::host {

using Json = nlohmann::ordered_json;

/// What a finding means for the user, in the order of `CKVOImportReport::Severity`.
enum class Level { kNote, kWarning, kError };

/// "note", "warning" or "error".
std::string_view nameOf(Level level);

/// Findings by level.
struct Tally {
    std::array<std::size_t, 3> numbers{};

    bool operator==(const Tally&) const = default;

    std::size_t of(Level level) const { return numbers[static_cast<std::size_t>(level)]; }
    void add(Level level) { ++numbers[static_cast<std::size_t>(level)]; }
    void add(const Tally& other);
};

/// One finding of the report; equal ones are folded.
struct ImportFinding {
    struct Place {
        long long line = 0;  ///< 0 where no line is concerned
        int column = 0;      ///< in bytes from 1; 0 where no field is concerned
        std::string text;    ///< what stands there
    };

    Level level = Level::kError;
    std::string code;
    std::string text;
    std::string advice;  ///< empty where there is none
    std::string file;
    long long count = 1;        ///< how often it was found
    std::vector<Place> places;  ///< the first ones, at least one

    bool operator==(const ImportFinding& other) const;
};

/// What was found and what was read, in one import of a file or in several.
struct ImportFindings {
    std::vector<ImportFinding> findings;
    /// What the reader returns, such as 12 "nodes".
    std::vector<std::pair<std::string, long long>> counts;
    bool failed = false;  ///< an import has returned false

    /// Adds what `report` holds after an import that returned `imported`. What another reader has
    /// found and counted as well is not added again.
    void take(CKVOImportReport& report, bool imported);
    /// Adds a finding that no report holds.
    void add(Level level, const std::string& code, const std::string& text,
             const std::string& file);
    /// The findings are of `shown` where the library was handed `read`.
    void rename(const std::string& read, const std::string& shown);
    /// Orders the findings by file and line; those without a line come last.
    void sort();

    Tally tally() const;
    /// How often findings of `code` were found.
    std::size_t countOf(std::string_view code) const;
    /// The first error; null without one.
    const ImportFinding* firstError() const;
};

Json asJson(const ImportFinding& finding);
/// {"errors": 1, "warnings": 0, "notes": 12}.
Json asJson(const Tally& tally);
/// The numbers, and "findings".
Json asJson(const ImportFindings& import);

}  // namespace kvocaeio::host
