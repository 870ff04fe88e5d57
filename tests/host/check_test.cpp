/// What `kvocaeio check` finds, as a user sees it.
#include <gmock/gmock.h>

#include "host/program.h"
#include "support/peak_memory.h"

#if !defined(_WIN32)
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace kvocaeio::test {
namespace {

using testing::Contains;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using testing::SizeIs;

constexpr std::string_view kCleanDeck =
    "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n4, 0, 0, 1\n"
    "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n";

// Two blocks of one set, which become one section.
constexpr std::string_view kTwoBlocks =
    "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n4, 0, 0, 1\n5, 0, 0, -1\n"
    "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n"
    "*ELEMENT, TYPE=C3D4, ELSET=A\n2, 1, 3, 2, 5\n";

// Numbers that are none in lines 2, 4 and 5; then a surface on nodes, after which nothing is read.
constexpr std::string_view kBadDeck =
    "*NODE\n1, 0, x, 0\n2, 1, 0, 0\n3, y, 1, 0\n4, 0, 0, z\n"
    "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n*SURFACE, TYPE=NODE\nA,\n";

TEST(Check, SaysThatAFileIsCleanAndWhatWasRead) {
    const TempFolder folder;
    const Outcome outcome = runHost({"check", folder.write("good.inp", kCleanDeck)});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.output, MatchesRegex("no findings in 1 file; read: 4 nodes, .*\n"));
    EXPECT_EQ(outcome.errors, "");
}

TEST(Check, WritesALineForEachFindingAsCompilersDo) {
    const TempFolder folder;
    const std::string deck = folder.write("bad.inp", kBadDeck);
    const Outcome outcome = runHost({"check", "--brief", deck});
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.errors, "");
    const std::vector<std::string> lines = linesOf(outcome.output);
    ASSERT_GE(lines.size(), 3u);
    EXPECT_TRUE(lines[0].starts_with(deck + ":2:7: ")) << lines[0];
    EXPECT_THAT(lines[0], ContainsRegex(" .and 2 more, at lines 4, 5. .abaqus\\..*.$"));
    EXPECT_TRUE(lines[1].starts_with(deck + ":8: error: ")) << lines[1];
    EXPECT_THAT(lines.back(), MatchesRegex(". errors?.* in 1 file"));
}

TEST(Check, ListsWhatIsSevereEnough) {
    const TempFolder folder;
    const Outcome outcome =
        runHost({"check", "--brief", "--min-severity", "error",
                 folder.write("two.inp", std::string(kTwoBlocks) + "*SURFACE, TYPE=NODE\nA,\n")});
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.output, Not(HasSubstr(": warning: ")));
    EXPECT_THAT(outcome.output, HasSubstr("two.inp:11: error: "));
    EXPECT_THAT(outcome.output, HasSubstr("; not listed: warnings"));
}

TEST(Check, EndsWithOneForWarnings) {
    const TempFolder folder;
    const std::string deck = folder.write("two.inp", kTwoBlocks);
    EXPECT_EQ(runHost({"check", deck}).exitCode, 1);
    EXPECT_EQ(runHost({"check", "--min-severity", "error", deck}).exitCode, 1);
}

TEST(Check, EndsWithThreeWhereAFileCannotBeRead) {
    const TempFolder folder;
    const std::string gone = folder.file("gone.inp");
    const std::string packed = folder.write("deck.inp.gz", "\x1f\x8b\x08");
    const Outcome outcome = runHost(
        {"check", gone, folder.write("bad.inp", kBadDeck), packed, "--min-severity", "error"});
    EXPECT_EQ(outcome.exitCode, 3);
    const std::vector<std::string> lines = linesOf(outcome.output);
    EXPECT_EQ(lines[0],
              gone + ": error: cannot be read: No such file or directory [file.cannot-open]");
    EXPECT_THAT(lines, Contains(packed + ": error: is compressed by gzip: unpack it first "
                                         "[file.compressed]"));
    EXPECT_THAT(lines.back(), HasSubstr(" in 3 files, of which 2 could not be read"));
}

TEST(Check, ReadsAllFormatsInAFolder) {
    const Outcome outcome = runHost(
        {"check", "--json", "--reports", sampleDeck("reports"), sourceFile("examples/data")});
    EXPECT_EQ(outcome.errors, "");
    std::vector<std::string> formats;
    const auto document = nlohmann::json::parse(outcome.output);
    for (const auto& file : document.at("files")) {
        formats.push_back(file.at("format"));
        EXPECT_FALSE(file.at("failed"));
        EXPECT_THAT(file.at("read"), Not(SizeIs(0)));
    }
    EXPECT_THAT(formats, testing::ElementsAre("nastran", "patran", "patran", "abaqus", "abaqus",
                                              "abaqus", "abaqus", "3di", "cadence"));
}

TEST(Check, ReadsOnWhereAByteOrderMarkHidesTheFirstLine) {
    const TempFolder folder;
    const Outcome outcome =
        runHost({"check", folder.write("marked.inp", "\xef\xbb\xbf" + std::string(kCleanDeck))});
    EXPECT_NE(outcome.exitCode, 3);
    EXPECT_THAT(outcome.output, Not(HasSubstr("[file.")));
}

TEST(Check, SaysThatADeckCannotBeNormalised) {
    const TempFolder folder;
    const Outcome outcome =
        runHost({"check", folder.write("odd.inp", std::string(kCleanDeck) +
                                                      "*ELSET, ELSET=B, GENERATE\n5, 3, 1\n")});
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.output, HasSubstr("the deck cannot be normalised"));
}

#if !defined(_WIN32)

TEST(Check, NamesTheLogsThatWereWritten) {
    const TempFolder folder;
    folder.makeFolder("debug");
    const std::string deck = folder.write("good.inp", kCleanDeck);
    const Outcome outcome = runHost({"check", deck});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(
        linesOf(outcome.output),
        Contains(MatchesRegex(".*good.inp: note: logs written, .* \\[abaqus.debug-logs\\]")));
}

TEST(Check, WantsAFile) {
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{"check"},
                                               {"check", "--min-severity", "all", "a"},
                                               {"check", "--json", "--sarif", "a"}})
        EXPECT_EQ(runHost(arguments).exitCode, 2);
}

TEST(Check, ReadsStandardInput) {
    const Outcome outcome =
        runShell("printf '*NODE\\n1, 0, x, 0\\n' | " + quote(KVOCAEIO_PROGRAM) + " check -");
    EXPECT_THAT(linesOf(outcome.output)[0], testing::StartsWith("standard input:2:7: "));
}

TEST(Check, IsColouredOnATerminal) {
    const TempFolder folder;
    const std::string deck = folder.write("bad.inp", kBadDeck);
    const auto onTerminal = [&](const std::string& environment) {
        const std::string command =
            environment + " TERM=xterm " + KVOCAEIO_PROGRAM + " check " + deck;
        return runShell("script -qec '" + command + "' /dev/null").output;
    };
    const std::string coloured = onTerminal("");
    if (coloured.empty())
        GTEST_SKIP() << "there is no script(1) here";
    EXPECT_THAT(coloured, HasSubstr("\x1b[1m" + deck + ":8:\x1b[0m \x1b[1;31merror:\x1b[0m "));
    EXPECT_THAT(onTerminal("NO_COLOR=1"), Not(HasSubstr("\x1b[")));
}

TEST(Check, AFullDiskIsAFailure) {
    const Outcome outcome =
        runShell(quote(KVOCAEIO_PROGRAM) + " check " + quote(sampleDeck("hinge.inp")), "/dev/full");
    EXPECT_EQ(outcome.exitCode, 3);
    EXPECT_EQ(outcome.errors, "kvocaeio: the report cannot be written to standard output\n");
}

/// Peak memory of the program in KiB.
long peakOf(const std::vector<std::string>& arguments) {
    std::vector<char*> words;
    std::string program = KVOCAEIO_PROGRAM;
    words.push_back(program.data());
    std::vector<std::string> copies = arguments;
    for (std::string& argument : copies)
        words.push_back(argument.data());
    words.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        if (std::freopen("/dev/null", "w", stdout) != nullptr)
            execv(program.c_str(), words.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    EXPECT_EQ(WEXITSTATUS(status), 2);
    return usage.ru_maxrss;
}

TEST(Check, MemoryDoesNotGrowWithTheNumberOfFiles) {
    if (!kMemoryCounts)
        GTEST_SKIP() << "sanitizers take memory of their own";
    const TempFolder folder;
    folder.makeFolder("few");
    folder.makeFolder("many");
    for (int i = 0; i < 10; ++i)
        folder.write("few/" + std::to_string(i) + ".inp", kBadDeck);
    for (int i = 0; i < 10'000; ++i)
        folder.write("many/" + std::to_string(i) + ".inp", kBadDeck);
    for (const char* form : {"--brief", "--json", "--sarif"}) {
        const long few = peakOf({"check", form, folder.file("few")});
        // The paths alone take about a megabyte.
        EXPECT_LT(peakOf({"check", form, folder.file("many")}), few + 4 * 1024) << form;
    }
}

#endif

}  // namespace
}  // namespace kvocaeio::test
