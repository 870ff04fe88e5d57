/// How `kvocaeio` fails: messages on standard error and exit codes.
#include <fstream>
#include <gmock/gmock.h>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

constexpr std::string_view kBrokenSet =
    "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n"
    "*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 2, 3\n"
    "*ELSET, ELSET=B, GENERATE\n5, 3, 1\n";

TEST(CommandLine, HelpNamesTheCommandAndTheExitCodes) {
    const Outcome outcome = runHost({"--help"});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.output, HasSubstr("info"));
    EXPECT_THAT(outcome.output, HasSubstr("Exit code: 0 all files were read or written"));
    EXPECT_EQ(outcome.errors, "");
}

TEST(CommandLine, HelpOfACommandNamesItsOptions) {
    const Outcome outcome = runHost({"info", "--help"});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.output, HasSubstr("--json"));
    EXPECT_THAT(outcome.output, HasSubstr("--verbose"));
}

TEST(CommandLine, AWrongOneEndsWithTwo) {
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{},
                                               {"info"},
                                               {"inform", "a.inp"},
                                               {"info", "--jsn", "a.inp"},
                                               {"info", "--json", "--json-lines", "a.inp"}}) {
        const Outcome outcome = runHost(arguments);
        EXPECT_EQ(outcome.exitCode, 2);
        EXPECT_EQ(outcome.output, "");
        EXPECT_THAT(outcome.errors, HasSubstr("--help"));
    }
}

TEST(CommandLine, NamesAnUnknownCommandAndThoseThatAreKnown) {
    EXPECT_EQ(
        runHost({"inform", "a.inp"}).errors,
        "kvocaeio: unknown command 'inform'; the commands are info, check, convert, tidy, view\n"
        "Run with --help for more information.\n");
    EXPECT_EQ(runHost({}).errors,
              "kvocaeio: no command; the commands are info, check, convert, tidy, view\n"
              "Run with --help for more information.\n");
}

TEST(CommandLine, HelpSaysWhatStandsBehindAnOption) {
    const std::string info = runHost({"info", "--help"}).output;
    for (const char* option :
         {"--tool TOOL", "--temp FOLDER", "--tool-timeout SECONDS", "--reports FOLDER"})
        EXPECT_THAT(info, HasSubstr(option));
    EXPECT_THAT(runHost({"convert", "--help"}).output, HasSubstr("--scale FACTOR"));
}

/// The message that `info` leaves on a file that it cannot report.
std::string complaintOn(const std::string& file) {
    const Outcome outcome = runHost({"info", file});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output, "");
    const std::string front = "kvocaeio: " + file + ": ";
    EXPECT_THAT(outcome.errors, StartsWith(front));
    return outcome.errors.substr(std::min(front.size(), outcome.errors.size()));
}

TEST(InfoFailure, MissingFile) {
    const TempFolder folder;
    EXPECT_EQ(complaintOn(folder.file("nowhere.inp")),
              "cannot be read: No such file or directory\n");
}

TEST(InfoFailure, Folder) {
    const TempFolder folder;
    folder.makeFolder("deck.inp");
    EXPECT_EQ(complaintOn(folder.file("deck.inp")),
              "is a folder without a file of a known format\n");
}

TEST(InfoFailure, EmptyFile) {
    const TempFolder folder;
    EXPECT_EQ(complaintOn(folder.write("empty.inp", "")), "is empty\n");
}

TEST(InfoFailure, TextOfNoFormat) {
    const TempFolder folder;
    EXPECT_EQ(complaintOn(folder.write("letter.txt", "Dear reader,\n*NODES are points.\n")),
              "holds nothing that is known here (known formats: Abaqus input deck, Patran neutral "
              "file, Nastran bulk data, 3DI package, Cadence design)\n");
}

TEST(InfoFailure, DeckWithoutAMesh) {
    const TempFolder folder;
    EXPECT_EQ(complaintOn(folder.write("steps.inp", "*HEADING\nnothing\n*ELSET, ELSET=A\n1, 2\n")),
              "holds no nodes, no elements and no shell sections of an Abaqus deck\n");
}

TEST(InfoFailure, OneOfSeveralFiles) {
    const TempFolder folder;
    const Outcome outcome = runHost(
        {"info", "--json", sampleDeck("hinge.inp"), folder.file("gone"), sampleDeck("clip.inp")});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(linesOf(outcome.errors).size(), 1u);
    const json files = json::parse(outcome.output).at("files");
    ASSERT_EQ(files.size(), 3u);
    EXPECT_EQ(files[0].at("mesh").at("elements"), 72);
    EXPECT_EQ(files[1].at("status"), "failed");
    EXPECT_EQ(files[1].at("findings"), json::parse(R"([
        {"level": "error", "code": "cannot-be-read", "count": 1,
         "text": "cannot be read: No such file or directory"}])"));
    EXPECT_EQ(files[1].at("file"), folder.file("gone"));
    EXPECT_EQ(files[2].at("mesh").at("elements"), 168);
}

TEST(InfoFailure, ADeckThatCannotBeNormalisedIsStillShown) {
    const TempFolder folder;
    const std::string deck = folder.write("odd.inp", kBrokenSet);
    const Outcome outcome = runHost({"info", "--json", deck});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors,
              "kvocaeio: " + deck +
                  ": the deck cannot be normalised: a generated set ends before "
                  "it starts, or sets ask for too many rows (vector<T> too long)\n");
    const json report = json::parse(outcome.output).at("files").at(0);
    EXPECT_EQ(report.at("abaqus").at("normalised"), nullptr);
    EXPECT_EQ(report.at("abaqus").at("sections"), json::parse(R"([{"set": "A", "kind": "triangles",
        "nodesPerElement": 3, "elements": 1}])"));
    EXPECT_THAT(runHost({"info", deck}).output, HasSubstr("     0  A    1 triangle           3\n"));
}

/// Rights do not bind the superuser, in whose name tests often run.
Outcome runHostWithoutRights(const std::string& file) {
#if defined(_WIN32)
    return runHost({"info", file});
#else
    const std::string plainUser = "setpriv --reuid=65534 --regid=65534 --clear-groups ";
    const std::string program = quote(KVOCAEIO_PROGRAM);
    if (runShell(plainUser + program + " --version").exitCode == 0)
        return runShell(plainUser + program + " info " + quote(file));
    return runHost({"info", file});
#endif
}

TEST(InfoFailure, ReadOnlyDeck) {
    const TempFolder folder;
    const std::string deck = folder.write("locked.inp", kBrokenSet);
    using std::filesystem::perms;
    std::filesystem::permissions(deck, perms::owner_read | perms::group_read | perms::others_read);
    const Outcome outcome = runHostWithoutRights(deck);
    if (outcome.output != "")
        GTEST_SKIP() << "this user may write to files that are read-only";
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors,
              "kvocaeio: " + deck +
                  ": cannot be opened for reading and writing: Permission denied (a deck must be "
                  "writable, although it is never changed)\n");
}

#if !defined(_WIN32)

TEST(InfoFailure, UnreadableDeck) {
    const TempFolder folder;
    const std::string deck = folder.write("secret.inp", kBrokenSet);
    std::filesystem::permissions(deck, std::filesystem::perms::none);
    const Outcome outcome = runHostWithoutRights(deck);
    if (outcome.output != "")
        GTEST_SKIP() << "this user may read every file";
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, "kvocaeio: " + deck + ": cannot be read: Permission denied\n");
}

TEST(InfoFailure, StandardOutputIsFull) {
    const Outcome outcome =
        runShell(quote(KVOCAEIO_PROGRAM) + " info " + quote(sampleDeck("hinge.inp")), "/dev/full");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, "kvocaeio: the report cannot be written to standard output\n");
}

TEST(InfoFailure, AClosedStandardOutputDoesNotSendProgressLinesIntoTheDeck) {
    const TempFolder folder;
    const std::string deck = folder.write("odd.inp", kBrokenSet);
    const Outcome outcome =
        runShell(quote(KVOCAEIO_PROGRAM) + " info --verbose " + quote(deck), "&-");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(readBytes(deck), kBrokenSet);
}

#endif

}  // namespace
}  // namespace kvocaeio::test
