/// The page of all findings is made of the rows of their tables, the examples, and what an import
/// of these tells. With KVOCAEIO_WRITE_PAGES set in the environment, the test writes the page.
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "report/examples.h"
#include "report/kinds.h"
#include "support/files.h"

namespace kvocaeio {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kWidth = 100;

// The words of `text` in lines of at most `kWidth` characters.
std::string filled(const std::string& text) {
    std::string page;
    std::size_t length = 0;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const bool fits = length > 0 && length + 1 + word.size() <= kWidth;
        page += fits ? " " : length > 0 ? "\n" : "";
        length = fits ? length + 1 + word.size() : word.size();
        page += word;
    }
    return page + '\n';
}

std::string_view severityOf(const text::FindingKind& kind) {
    static constexpr std::string_view kSeverities[] = {"note", "warning", "error"};
    return kSeverities[static_cast<std::size_t>(kind.severity)];
}

std::string headOf(const text::FindingKind& kind) {
    std::string severity(severityOf(kind));
    severity[0] = static_cast<char>(severity[0] - 'a' + 'A');
    return "### `" + std::string(kind.code) + "`\n\n" +
           filled("**" + severity + ".** " + std::string(kind.why));
}

std::string fenced(const std::string& content) {
    return "\n```text\n" + content + (content.ends_with('\n') ? "" : "\n") + "```\n";
}

// Bytes that a page cannot show, as escapes.
std::string shown(const std::string& content) {
    std::string out;
    for (const char character : content) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '\n' || character == '\t' || (byte >= ' ' && byte < 0x7F)) {
            out += character;
        } else {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\x%02X", byte);
            out += escape;
        }
    }
    return out;
}

// A deck stands before what it includes.
std::pair<bool, std::string> placeInOrder(const fs::path& file) {
    return {file.stem() != "deck", file.generic_string()};
}

std::string contentOf(const fs::path& path) {
    if (!fs::is_directory(path))
        return shown(test::readBytes(path));
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(path))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    std::ranges::sort(files, {}, [](const fs::path& file) { return placeInOrder(file); });
    std::string content;
    for (const fs::path& file : files)
        content += "--- " + file.lexically_relative(path).generic_string() + "\n" +
                   shown(test::readBytes(file));
    return content;
}

// What stands for the subject of a finding that no example yields.
std::string_view subjectOf(std::string_view code) {
    const auto* const of =
        std::ranges::find(test::kCodesWithoutExample, code, &test::CodeWithoutExample::code);
    return of != test::kCodesWithoutExample.end() ? of->subject : "REASON";
}

std::string exampleOf(const text::FindingKind& kind, const std::vector<test::Example>& examples) {
    for (const test::Example& example : examples) {
        if (example.isCounter || example.code != kind.code)
            continue;
        std::string told;
        for (const test::Told& each : test::importExample(example.path))
            told += test::lineOf(each) + '\n';
        return fenced(contentOf(example.path)) + fenced(told);
    }
    std::string text(kind.text);
    if (const std::size_t subject = text.find("{}"); subject != std::string::npos)
        text.replace(subject, 2, subjectOf(kind.code));
    return fenced("FILE: " + std::string(severityOf(kind)) + ": " + text + " [" +
                  std::string(kind.code) + "]");
}

const std::string kTitle =
    "# Findings\n\n" +
    filled(
        "What an import with a report, or `kvocaeio check`, tells of a file. Every finding has a "
        "code that does not change. A **note** is passed over as designed, and the mesh is "
        "whole; a **warning** says that something of the model is lost or changed; an **error** "
        "says that what follows is not read, or that the result is surely not what the file "
        "means. The readers import the file as they always do: a report changes nothing of "
        "that.") +
    "\n" +
    filled(
        "`kvocaeio check` adds `file.` and a reason for what it does not hand to a reader, such as "
        "`file.compressed` for a compressed file, and, as a note, `abaqus.debug-logs` where the "
        "import of a deck has written logs into a folder `debug` beside it.") +
    "\n" +
    filled(
        "Codes that begin with `tidy.` are told by `CKVODeckTidy` and `kvocaeio tidy` of a deck "
        "that is tidied. There a note says what was done, a warning what the new deck does not "
        "hold, and with an error there is no new deck.") +
    "\n" +
    filled(
        "Each example is a whole file, followed by what is told of it; where files stand in a "
        "folder, their names stand before them.");

std::string page() {
    const std::vector<test::Example> examples = test::allExamples();
    std::string page(kTitle);
    std::string island;
    for (const text::FindingKind& kind : test::allKinds()) {
        const std::string of(kind.code.substr(0, kind.code.find('.')));
        if (of != island)
            page += "\n## `" + of + "`\n";
        island = of;
        page += "\n" + headOf(kind) + exampleOf(kind, examples);
        if (!kind.advice.empty())
            page += "\n" + filled("What to do: " + std::string(kind.advice) + ".");
    }
    return page;
}

TEST(FindingsPage, IsMadeOfTheTablesAndTheExamples) {
    const fs::path path(KVOCAEIO_FINDINGS_PAGE);
    if (std::getenv("KVOCAEIO_WRITE_PAGES") != nullptr)
        std::ofstream(path, std::ios::binary) << page();
    EXPECT_EQ(test::readBytes(path), page());
}

}  // namespace
}  // namespace kvocaeio
