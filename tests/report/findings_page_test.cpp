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

std::string headOf(const text::FindingKind& kind) {
    static constexpr const char* kSeverities[] = {"Note", "Warning", "Error"};
    return "### `" + std::string(kind.code) + "`\n\n" +
           filled("**" + std::string(kSeverities[static_cast<std::size_t>(kind.severity)]) +
                  ".** " + std::string(kind.why));
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

std::string contentOf(const fs::path& path) {
    if (!fs::is_directory(path))
        return shown(test::readBytes(path));
    std::vector<fs::path> reports{fs::directory_iterator(path), fs::directory_iterator()};
    std::ranges::sort(reports);
    std::string content;
    for (const fs::path& report : reports)
        content += "--- " + report.filename().string() + "\n" + shown(test::readBytes(report));
    return content;
}

std::string exampleOf(const text::FindingKind& kind) {
    for (const test::Example& example : test::allExamples()) {
        if (example.isCounter || example.code != kind.code)
            continue;
        std::string told;
        for (const test::Told& each : test::importExample(example.path))
            told += test::lineOf(each) + '\n';
        return fenced(contentOf(example.path)) + fenced(told);
    }
    std::string text(kind.text);
    if (const std::size_t subject = text.find("{}"); subject != std::string::npos)
        text.replace(subject, 2, "REASON");
    return fenced("FILE: error: " + text + " [" + std::string(kind.code) + "]");
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
    "\n" + filled("Each example is a whole file, followed by what is told of it.");

std::string page() {
    std::string page(kTitle);
    std::string island;
    for (const text::FindingKind& kind : test::allKinds()) {
        const std::string of(kind.code.substr(0, kind.code.find('.')));
        if (of != island)
            page += "\n## `" + of + "`\n";
        island = of;
        page += "\n" + headOf(kind) + exampleOf(kind);
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
