/// What the README and the page on tidying show of the program is what it prints and writes.
#include <algorithm>
#include <gmock/gmock.h>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

using testing::EndsWith;

// The fenced block of a page that begins with this line.
std::string blockOf(const std::string& page, const std::string& firstLine) {
    const std::string text = readText(sourceFile(page));
    for (const std::string fence : {"```\n", "```text\n"})
        if (const auto at = text.find("\n" + fence + firstLine + "\n"); at != std::string::npos) {
            const std::size_t begin = at + 1 + fence.size();
            return text.substr(begin, text.find("\n```", begin) + 1 - begin);
        }
    return "no block of " + page + " begins with " + firstLine;
}

// What the program prints of files in `folder`, which is not named.
std::string printedIn(const TempFolder& folder, const std::vector<std::string>& arguments) {
    const Outcome outcome = runHost(arguments);
    EXPECT_EQ(outcome.errors, "");
    std::string printed = outcome.output;
    const std::string prefix = folder.file("");
    for (std::size_t at = 0; (at = printed.find(prefix)) != std::string::npos;)
        printed.erase(at, prefix.size());
    return printed;
}

TEST(DocumentedOutput, OfInfo) {
    const TempFolder folder;
    const std::string deck =
        folder.write("part.inp",
                     "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 1, 1, 0\n4, 0, 1, 0\n"
                     "5, 0, 0, 2\n6, 1, 0, 2\n7, 1, 1, 2\n8, 0, 1, 2\n9, 0.5, 0.5, 3.5\n"
                     "*ELEMENT, TYPE=C3D8, ELSET=BODY\n1, 1, 2, 3, 4, 5, 6, 7, 8\n"
                     "*ELEMENT, TYPE=C3D5, ELSET=BODY\n2, 5, 6, 7, 8, 9\n"
                     "*ELEMENT, TYPE=MASS\n3, 1\n*DLOAD\n1, P1, 1.0\n1, P3, 1.0\n2, P1, 1.0\n");
    EXPECT_THAT(printedIn(folder, {"info", deck}),
                EndsWith(blockOf("README.md",
                                 "  deck  set        elements           nodes each  in the mesh")));
}

TEST(DocumentedOutput, OfCheck) {
    const TempFolder folder;
    const std::string deck = folder.write("part.inp", blockOf("README.md", "*NODE"));
    const std::string printed = printedIn(folder, {"check", deck});
    EXPECT_EQ(printed, blockOf("README.md", printed.substr(0, printed.find('\n'))));
}

TEST(DocumentedOutput, OfTidyAndItsDecks) {
    const TempFolder folder;
    const std::string bulk = folder.write("part.bdf", blockOf("docs/tidy.md", "SOL 101"));
    EXPECT_EQ(printedIn(folder, {"tidy", bulk, folder.file("plain.nas")}),
              blockOf("README.md",
                      "plain.nas: rewritten, 8 nodes, 1 element, 1 property; coordinates change by "
                      "at most 1.1e-07; 11 notes (--report lists them)"));
    EXPECT_EQ(readText(folder.path() / "plain.nas"), blockOf("docs/tidy.md", "BEGIN BULK"));
    const std::string deck = folder.write("part.inp", blockOf("docs/tidy.md", "*Part, name=Plate"));
    EXPECT_EQ(runHost({"tidy", deck, folder.file("plain.inp")}).exitCode, 0);
    EXPECT_EQ(readText(folder.path() / "plain.inp"), blockOf("docs/tidy.md", "** Tidy deck"));
}

}  // namespace
}  // namespace kvocaeio::test
