/// Programs run as a user runs them, through the system's shell.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "support/files.h"

#if !defined(_WIN32)
#include <sys/wait.h>
#endif

namespace kvocaeio::test {

struct Outcome {
    int exitCode;
    std::string output;
    std::string errors;
};

/// `path`, as it was when the test was built, in the words of the system that the test runs on: a
/// Windows program under Wine finds the Linux root as drive Z.
inline std::string nativePath(std::string path) {
#if defined(_WIN32)
    std::replace(path.begin(), path.end(), '/', '\\');
    if (path.front() == '\\')
        path.insert(0, "Z:");
#endif
    return path;
}

inline std::string quote(const std::string& word) {
    return '"' + word + '"';
}

/// `text`, UTF-8, as a path, whatever the encoding of the system's narrow paths is.
inline std::filesystem::path fromUtf8(const std::string& text) {
    return std::u8string(text.begin(), text.end());
}

/// Runs a command line of the shell, UTF-8; `output` is where its standard output goes instead of
/// to the outcome.
inline Outcome runShell(const std::string& command, const std::string& output = "") {
    const TempFolder folder;
    std::string line = command + " 2>" + quote(folder.file("errors")) + " >" +
                       (output.empty() ? quote(folder.file("output")) : output);
#if defined(_WIN32)
    line = quote(line);  // the shell takes one pair of quotes off
    const int exitCode = _wsystem(fromUtf8(line).c_str());
#else
    const int status = std::system(line.c_str());
    const int exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
    return {exitCode, readText(folder.path() / "output"), readText(folder.path() / "errors")};
}

/// Runs a program with plain and quoted arguments.
inline Outcome runProgram(const std::string& program, const std::vector<std::string>& arguments) {
    std::string command = quote(nativePath(program));
    for (const std::string& argument : arguments)
        command += ' ' + quote(argument);
    return runShell(command);
}

inline Outcome runHost(const std::vector<std::string>& arguments) {
    return runProgram(KVOCAEIO_PROGRAM, arguments);
}

/// Path of a file of the project.
inline std::string sourceFile(const std::string& name) {
    return nativePath(std::string(KVOCAEIO_SOURCES) + "/" + name);
}

inline std::string sampleDeck(const std::string& name) {
    return sourceFile("examples/data/" + name);
}

/// The report of one file by `info --json`.
inline nlohmann::json jsonReport(const std::string& file) {
    return nlohmann::json::parse(runHost({"info", "--json", file}).output).at("files").at(0);
}

/// Names of the files in a folder.
inline std::vector<std::string> namesIn(const TempFolder& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

/// The lines of `text`.
inline std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t at = 0;
    for (std::size_t end = 0; (end = text.find('\n', at)) != std::string::npos; at = end + 1)
        lines.push_back(text.substr(at, end - at));
    return lines;
}

/// The lines of `text` without that on what the library reports of the import.
inline std::vector<std::string> ownLinesOf(const std::string& text) {
    std::vector<std::string> lines = linesOf(text);
    if (!lines.empty() && lines.back().starts_with("import: "))
        lines.pop_back();
    return lines;
}

}  // namespace kvocaeio::test
