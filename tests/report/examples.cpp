/// Examples of findings, imported as a host does it.
#include "report/examples.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string_view>

#include "support/captured_output.h"
#include <kvocaeio/abaqus.h>
#include <kvocaeio/nastran.h>
#include <kvocaeio/package.h>
#include <kvocaeio/patran.h>
#include <kvocaeio/report.h>
#include <kvocaeio/tidy.h>

namespace kvocaeio::test {

namespace {

namespace fs = std::filesystem;

// `folder` is that of the example; empty where it is a single file.
void collect(CKVOImportReport& report, std::vector<Told>& told, const fs::path& folder = {}) {
    const auto nameOf = [&](const fs::path& file) {
        return folder.empty() ? file.filename() : file.lexically_relative(folder);
    };
    CKVOImportReport::FindingData finding;
    for (report.GetFindingBegin(); report.GetFindingNext(&finding);) {
        static constexpr const char* kSeverities[] = {"note", "warning", "error"};
        const auto isKnown = [&](const Told& each) {
            return each.code == finding.code && each.text == finding.text;
        };
        if (std::ranges::none_of(told, isKnown))
            told.push_back({finding.code, nameOf(finding.file).generic_string(), finding.line,
                            finding.column, kSeverities[finding.severity], finding.text});
    }
}

void importDeck(const std::string& path, CKVOImportReport& report) {
    CKVOAbaqusReader reader;
    if (!reader.ImportInpFile(path.c_str(), &report))
        return;
    try {
        reader.SortData(&report);
    } catch (const std::length_error&) {  // the report holds the reason
    }
}

void importPackage(const fs::path& path, CKVOImportReport& report) {
    CKVOCadenceReader reader;
    try {
        if (fs::is_directory(path)) {
            reader.SetTempFilePath(path.string().c_str());
            reader.ImportCadenceFile("design", &report);  // without a tool: the reports lie there
        } else {
            reader.Import3DIFile(path.string().c_str(), &report);
        }
    } catch (const std::out_of_range&) {  // likewise
    }
}

// The file at `path`, or those of a folder in the order of their names.
std::vector<std::string> filesOf(const fs::path& path) {
    if (!fs::is_directory(path))
        return {path.string()};
    std::vector<std::string> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(path))
        files.push_back(entry.path().string());
    std::ranges::sort(files);
    return files;
}

void importNeutralFiles(const std::vector<std::string>& files, CKVOImportReport& report,
                        std::vector<Told>& told) {
    CKVO_PatranIO_Bridge lists;
    CPatranReader arrays;
    for (const std::string& file : files) {
        lists.ImportFromPatFile(file.c_str(), &report);
        collect(report, told);
        arrays.ImportFromPatFile(file.c_str(), &report);
        collect(report, told);
    }
}

// The deck of an example: the file itself, or the one that is named "deck" in its folder.
fs::path deckOf(const fs::path& example) {
    if (fs::is_directory(example))
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(example))
            if (entry.path().stem() == "deck")
                return entry.path();
    return example;
}

std::vector<Told> tidyExample(const fs::path& example) {
    CKVOImportReport report;
    CKVODeckTidy tidy;
    const char* const nowhere = nullptr;
    tidy.Tidy(deckOf(example).string().c_str(), nowhere, CKVODeckTidy::kRecognise, &report);
    std::vector<Told> told;
    collect(report, told, fs::is_directory(example) ? example : fs::path());
    return told;
}

Example exampleAt(const fs::path& path) {
    Example example{path, path.stem().string()};
    constexpr std::string_view kCounter = ".not";
    example.isCounter = example.code.ends_with(kCounter);
    if (example.isCounter)
        example.code.resize(example.code.size() - kCounter.size());
    return example;
}

}  // namespace

std::vector<Example> allExamples() {
    std::vector<Example> examples;
    for (const fs::directory_entry& entry : fs::directory_iterator(KVOCAEIO_FINDING_EXAMPLES))
        examples.push_back(exampleAt(entry.path()));
    std::ranges::sort(examples, {}, &Example::path);
    return examples;
}

std::vector<Told> importExample(const fs::path& file) {
    if (isTidied(file.filename().string()))
        return tidyExample(file);
    const CapturedOutput quiet;
    CKVOImportReport report;
    std::vector<Told> told;
    const std::string path = file.string();
    const std::string extension = file.extension().string();
    if (extension == ".inp") {
        importDeck(path, report);
    } else if (extension == ".nas" || extension == ".bdf") {
        KVONASTRAN_Reader().SetFilePath(path.c_str(), &report);
    } else if (extension == ".pat") {
        importNeutralFiles(filesOf(file), report, told);
    } else if (extension == ".3di" || extension == ".reports" || file.filename() == "reports") {
        importPackage(file, report);
    } else {
        ADD_FAILURE() << path << " is no example of any format";
    }
    collect(report, told);
    return told;
}

std::string lineOf(const Told& told) {
    std::string line = told.file;
    if (told.line > 0)
        line += ":" + std::to_string(told.line);
    if (told.column > 0)
        line += ":" + std::to_string(told.column);
    return line + ": " + told.severity + ": " + told.text + " [" + told.code + "]";
}

}  // namespace kvocaeio::test
