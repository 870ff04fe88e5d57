/// Abaqus input decks: how they are told from other files, and how they are read.
#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <system_error>

#include "abaqus_report.h"
#include "abaqus_tables.h"
#include "format.h"
#include <kvocaeio/abaqus.h>

namespace kvocaeio::host {

namespace {

constexpr std::array<std::string_view, 1> kExtensions = {".inp"};

// A file without any of them holds nothing that the reader takes in.
constexpr std::array<std::string_view, 6> kKeywords = {"*NODE",    "*ELEMENT", "*ELSET",
                                                       "*SURFACE", "*DLOAD",   "*SHELL SECTION"};

/// First field of a line in upper case, without blanks around it.
std::string firstField(std::string_view line) {
    std::string_view field = line.substr(0, line.find_first_of(",\r"));
    field.remove_prefix(std::min(field.find_first_not_of(' '), field.size()));
    std::string folded(field.substr(0, field.find_last_not_of(' ') + 1));
    std::transform(folded.begin(), folded.end(), folded.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return folded;
}

bool recognises(std::string_view head) {
    while (!head.empty()) {
        const std::string_view line = head.substr(0, head.find('\n'));
        if (std::count(kKeywords.begin(), kKeywords.end(), firstField(line)) != 0)
            return true;
        head.remove_prefix(std::min(line.size() + 1, head.size()));
    }
    return false;
}

/// Sends what the library prints elsewhere, as long as it lives.
class Redirection {
  public:
    explicit Redirection(PrintTarget target) : token_(redirectStandardOutput(target)) {}
    ~Redirection() { restoreStandardOutput(token_); }
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;

  private:
    int token_;
};

/// Runs `work` with the library's output sent to `progress` and gives the seconds that it took.
template <class Work>
double timed(PrintTarget progress, const Work& work) {
    const Redirection redirection(progress);
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Why the import refused a file that could be read before.
[[noreturn]] void throwImportFailure(const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "r+b"),
                                                               std::fclose);
    if (file)
        throw std::bad_alloc();
    throw FileError(
        "cannot be opened for reading and writing: " + std::generic_category().message(errno) +
        " (a deck must be writable, although it is never changed)");
}

std::unique_ptr<Report> read(const std::string& path, PrintTarget progress) {
    auto report = std::make_unique<AbaqusReport>();
    CKVOAbaqusReader reader;
    bool imported = false;
    report->importSeconds = timed(progress, [&] { imported = reader.ImportInpFile(path.c_str()); });
    if (!imported)
        throwImportFailure(path);
    DeckTables tables = takeRawTables(reader);
    if (tables.nodeIds.empty() && tables.raw.empty() && tables.thicknesses.empty())
        throw FileError("holds no nodes, no elements and no shell sections of an Abaqus deck");
    try {
        report->normalisationSeconds = timed(progress, [&] { reader.SortData(); });
        takeNormalisedTables(reader, tables);
    } catch (const std::length_error& error) {
        report->sortFailure =
            std::string("a generated set ends before it starts, or sets ask for too many rows (") +
            error.what() + ")";
    } catch (const std::bad_alloc&) {
        report->sortFailure = "there is not enough memory";
    }
    report->summary = summarise(tables, report->sortFailure.empty());
    return report;
}

}  // namespace

const Format kAbaqusFormat = {"Abaqus input deck", kExtensions, recognises, read};

}  // namespace kvocaeio::host
