/// A second, plain import of extraction reports for the tests: one step after the other, nothing
/// clever.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace kvocaeio::test {

struct NaiveComponent {
    int type = 0;
    std::string name;
    double center[3] = {};
    double size[3] = {};
};

/// The cells of one report.
struct NaiveReport {
    std::vector<std::string> header, job, data;
};

/// What one reader has after its imports.
class NaiveCadence {
  public:
    /// Imports "CmdFile1.txt" to "CmdFile3.txt" as they lie in the folder. Throws std::out_of_range
    /// where the layer report has no job.
    bool import(const std::filesystem::path& folder);

    std::optional<std::vector<NaiveComponent>> components;

  private:
    bool readReport(const std::filesystem::path& path, NaiveReport& report);
    bool readUnits();
    int findColumn(const NaiveReport& report, const std::string& name) const;
    bool findColumns(const NaiveReport& report, const std::vector<std::string>& names);
    const std::string& cell(const NaiveReport& report, std::size_t row, std::size_t name) const;
    double number(const NaiveReport& report, std::size_t row, std::size_t name) const;
    bool readReports();
    bool readSymbols();
    bool readDieStack();
    bool readLayers();

    double unitScale_ = 1.0;
    NaiveReport reports_[3];
    std::vector<std::size_t> columns_;  // of the names looked up last
};

}  // namespace kvocaeio::test
