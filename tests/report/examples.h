/// The examples of findings: files of a few lines, `CODE.EXT`, or folders with a design's reports,
/// `CODE.reports`, or with neutral files that one reader imports, `CODE.pat`; those named
/// `CODE.not.EXT` look alike and do not yield the finding. Examples of codes that begin with
/// "tidy." are decks, or folders `CODE.deck` with a deck and what it includes.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kvocaeio::test {

struct Example {
    std::filesystem::path path;
    std::string code;
    bool isCounter = false;
};

/// A code that no small file can yield: it takes a large one, or something of the system.
struct CodeWithoutExample {
    std::string_view code;
    std::string_view subject;  ///< a word for what the code's sentence names
};
inline constexpr std::array<CodeWithoutExample, 6> kCodesWithoutExample{{
    {"tidy.include-case", "NAME"},
    {"tidy.include-failed", "NAME"},
    {"tidy.line-long", ""},
    {"tidy.nastran-no-number-left", ""},
    {"tidy.output-failed", "REASON"},
    {"tidy.output-is-input", "NAME"},
}};

/// Whether examples of a code are tidied, not imported.
inline bool isTidied(std::string_view code) {
    return code.starts_with("tidy.");
}

/// In the order of their names.
std::vector<Example> allExamples();

/// A finding of an example, at its first place.
struct Told {
    std::string code;
    std::string file;  ///< without the folder of the example, or else that of the file
    long long line = 0;
    int column = 0;
    std::string severity;
    std::string text;
};

/// What an import of a file or folder, with all that follows it, reports; of an example of tidying,
/// what that reports. Both readers read a neutral file; a finding that both have is told once.
std::vector<Told> importExample(const std::filesystem::path& path);

/// A line such as `kvocaeio check` writes.
std::string lineOf(const Told& told);

}  // namespace kvocaeio::test
