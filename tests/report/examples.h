/// The examples of findings: files of a few lines, `CODE.EXT`, or folders with a design's reports,
/// `CODE.reports`, or with neutral files that one reader imports, `CODE.pat`; those named
/// `CODE.not.EXT` look alike and do not yield the finding.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace kvocaeio::test {

struct Example {
    std::filesystem::path path;
    std::string code;
    bool isCounter = false;
};

/// In the order of their names.
std::vector<Example> allExamples();

/// A finding of an example, at its first place.
struct Told {
    std::string code;
    std::string file;  ///< without its folder
    long long line = 0;
    int column = 0;
    std::string severity;
    std::string text;
};

/// What an import of a file or folder, with all that follows it, reports. Both readers read a
/// neutral file; a finding that both have is told once.
std::vector<Told> importExample(const std::filesystem::path& path);

/// A line such as `kvocaeio check` writes.
std::string lineOf(const Told& told);

}  // namespace kvocaeio::test
