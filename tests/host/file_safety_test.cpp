/// What `kvocaeio` must never do to a file, and what it does with those that are none.
#include <gmock/gmock.h>
#include <thread>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

constexpr const char* kSpecial =
    ", not a file: save its content to a file first, or send it to standard input and name - as "
    "the file\n";

TEST(FileSafety, AFileIsNotConvertedOntoItself) {
    const TempFolder folder;
    folder.makeFolder("sub");
    const std::string file = folder.file("mesh.pat");
    std::filesystem::copy_file(sampleDeck("bracket.pat"), file);
    const std::string before = readBytes(file);
    std::filesystem::create_hard_link(file, folder.path() / "hard.pat");
    std::vector<std::string> names = {"mesh.pat", "sub/../mesh.pat", "hard.pat"};
#if defined(_WIN32)
    names.emplace_back("MESH.pat");
#else
    std::filesystem::create_symlink("mesh.pat", folder.path() / "soft.pat");
    names.emplace_back("soft.pat");
#endif
    for (const std::string& name : names) {
        const std::string other = folder.path().string() + "/" + name;
        for (const auto& [in, out] : {std::pair(file, other), std::pair(other, file)}) {
            const Outcome outcome = runHost({"convert", in, out});
            EXPECT_EQ(outcome.exitCode, 1) << name;
            EXPECT_EQ(outcome.errors,
                      "kvocaeio: " + out + ": cannot be written: it is the file that is read\n");
        }
    }
    EXPECT_EQ(readBytes(file), before);
}

TEST(FileSafety, FilesBesideTheTargetStayAsTheyAre) {
    const TempFolder folder;
    const std::string part = folder.write("out.nas.part", "keep me");
    EXPECT_EQ(runHost({"convert", sampleDeck("hinge.inp"), folder.file("out.nas")}).exitCode, 0);
    EXPECT_EQ(readBytes(part), "keep me");
    EXPECT_THAT(namesIn(folder), ElementsAre("out.nas", "out.nas.part"));
}

TEST(FileSafety, ConversionsToOneTargetAtATime) {
    const TempFolder folder;
    const std::string out = folder.write("out.pat", "old");
    std::vector<std::thread> threads;
    std::vector<Outcome> outcomes(6);
    for (Outcome& outcome : outcomes)
        threads.emplace_back([&] {
            outcome = runHost({"convert", "--quiet", sampleDeck("hinge.inp"), out});
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const Outcome& outcome : outcomes) {
        EXPECT_EQ(outcome.exitCode, 0);
        EXPECT_EQ(outcome.errors, "");
    }
    EXPECT_THAT(namesIn(folder), ElementsAre("out.pat"));
    EXPECT_EQ(runHost({"convert", "--quiet", out, folder.file("again.nas")}).exitCode, 0);
}

TEST(FileSafety, StandardInputIsReadAsAnyFile) {
    const TempFolder folder;
    const std::string program = quote(nativePath(KVOCAEIO_PROGRAM));
    const std::string input = " <" + quote(sampleDeck("clip.inp"));
    const Outcome convert =
        runShell(program + " convert --json - " + quote(folder.file("out.nas")) + input);
    EXPECT_EQ(convert.exitCode, 0);
    EXPECT_EQ(nlohmann::json::parse(convert.output).at("written").at("elements"), 168);
    const Outcome info = runShell(program + " info --json -" + input);
    EXPECT_EQ(info.exitCode, 0);
    EXPECT_THAT(info.output, HasSubstr("168"));
}

TEST(FileSafety, StandardInputIsNotReplaced) {
    const TempFolder folder;
    const std::string file = folder.file("mesh.pat");
    std::filesystem::copy_file(sampleDeck("bracket.pat"), file);
    const Outcome outcome = runShell(quote(nativePath(KVOCAEIO_PROGRAM)) + " convert - " +
                                     quote(file) + " <" + quote(file));
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(readBytes(file), readBytes(sampleDeck("bracket.pat")));
}

TEST(FileSafety, FoldersCannotBeReplaced) {
    const TempFolder folder;
    folder.makeFolder("out.nas");
    const Outcome outcome = runHost({"convert", sampleDeck("hinge.inp"), folder.file("out.nas")});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, EndsWith(": cannot be written: it is there and is no file\n"));
}

/// What a command line begins with whose program is to have no more rights than any user: rights do
/// not bind the superuser, in whose name tests often run.
std::string withoutRights() {
    const std::string plainUser = "setpriv --reuid=65534 --regid=65534 --clear-groups ";
#if defined(_WIN32)
    return "";
#else
    const bool can = runShell(plainUser + quote(KVOCAEIO_PROGRAM) + " --version").exitCode == 0;
    return can ? plainUser : "";
#endif
}

TEST(FileSafety, TargetsThatAreReadOnlyStay) {
    const TempFolder folder;
    const std::string out = folder.write("out.nas", "keep me");
    using std::filesystem::perms;
    std::filesystem::permissions(folder.path(), perms::all);
    std::filesystem::permissions(out, perms::owner_read | perms::group_read | perms::others_read);
    const Outcome outcome =
        runShell(withoutRights() + quote(nativePath(KVOCAEIO_PROGRAM)) + " convert " +
                 quote(sampleDeck("bracket.pat")) + " " + quote(out));
    std::filesystem::permissions(out, perms::owner_all);
    if (outcome.exitCode == 0)
        GTEST_SKIP() << "this user may write to files that are read-only";
    EXPECT_EQ(outcome.errors, "kvocaeio: " + out + ": cannot be written: Permission denied\n");
    EXPECT_EQ(readBytes(out), "keep me");
}

#if defined(_WIN32)

TEST(FileSafety, DevicesAreNamed) {
    EXPECT_EQ(runHost({"info", "NUL"}).errors,
              std::string("kvocaeio: NUL: is a device") + kSpecial);
}

TEST(FileSafety, AnInterruptionRemovesFilesThatAreOpen) {
    const TempFolder folder;
    const Outcome outcome =
        runProgram(KVOCAEIO_INTERRUPTED_PROGRAM, {folder.path().string() + "\\"});
    EXPECT_EQ(outcome.exitCode, 3);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

#else

TEST(FileSafety, PipesAndDevicesAreNamed) {
    const TempFolder folder;
    const std::string pipe = folder.file("pipe.inp");
    ASSERT_EQ(runShell("mkfifo " + quote(pipe)).exitCode, 0);
    const std::string message = "kvocaeio: " + pipe + ": is a pipe" + kSpecial;
    EXPECT_EQ(runHost({"info", pipe}).errors, message);
    EXPECT_EQ(runHost({"convert", pipe, folder.file("out.nas")}).errors, message);
    EXPECT_EQ(runHost({"info", "/dev/null"}).errors,
              std::string("kvocaeio: /dev/null: is a device") + kSpecial);
    const std::string target = folder.file("pipe.nas");
    ASSERT_EQ(runShell("mkfifo " + quote(target)).exitCode, 0);
    EXPECT_THAT(runHost({"convert", sampleDeck("hinge.inp"), target}).errors,
                EndsWith(": cannot be written: it is there and is no file\n"));
}

TEST(FileSafety, ATargetKeepsItsPermissions) {
    const TempFolder folder;
    const std::string out = folder.write("out.nas", "old");
    using std::filesystem::perms;
    const perms odd = perms::owner_read | perms::owner_write | perms::others_read;
    std::filesystem::permissions(out, odd);
    EXPECT_EQ(runHost({"convert", sampleDeck("hinge.inp"), out}).exitCode, 0);
    EXPECT_EQ(std::filesystem::status(out).permissions(), odd);
    const std::string fresh = folder.file("fresh.nas");
    EXPECT_EQ(runShell("umask 027; " + quote(KVOCAEIO_PROGRAM) + " convert " +
                       quote(sampleDeck("hinge.inp")) + " " + quote(fresh))
                  .exitCode,
              0);
    EXPECT_EQ(std::filesystem::status(fresh).permissions(),
              perms::owner_read | perms::owner_write | perms::group_read);
}

TEST(FileSafety, ATargetThatIsALinkKeepsBeingOne) {
    const TempFolder folder;
    folder.makeFolder("sub");
    const std::string real = folder.write("sub/real.nas", "old");
    std::filesystem::create_symlink("sub/real.nas", folder.path() / "link.nas");
    std::filesystem::create_symlink("link.nas", folder.path() / "second.nas");
    std::filesystem::create_symlink("sub/new.nas", folder.path() / "loose.nas");
    for (const char* name : {"second.nas", "loose.nas"}) {
        EXPECT_EQ(runHost({"convert", sampleDeck("hinge.inp"), folder.file(name)}).exitCode, 0);
        EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / name));
    }
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link.nas"));
    EXPECT_THAT(readBytes(real), EndsWith("ENDDATA\n"));
    EXPECT_THAT(readBytes(folder.file("sub/new.nas")), EndsWith("ENDDATA\n"));
}

TEST(FileSafety, AnInterruptedConversionLeavesNothingBehind) {
    const TempFolder folder;
    const std::string old = folder.write("old.nas", "keep me");
    // The signal for a file that grows beyond its limit comes in the middle of the writing.
    const Outcome outcome = runShell("ulimit -f 4; " + quote(KVOCAEIO_PROGRAM) + " convert " +
                                     quote(sampleDeck("hinge.inp")) + " " + quote(old));
    EXPECT_NE(outcome.exitCode, 0);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(readBytes(old), "keep me");
    EXPECT_THAT(namesIn(folder), ElementsAre("old.nas"));
}

TEST(FileSafety, AnInterruptedReadOfStandardInputLeavesNothingBehind) {
    const TempFolder folder;
    const std::string pipe = folder.file("pipe");
    folder.makeFolder("tmp");
    ASSERT_EQ(runShell("mkfifo " + quote(pipe)).exitCode, 0);
    // The pipe is open for writing, too, so that it never ends. The shell has what it starts in the
    // background ignore SIGINT.
    const std::string start = "export TMPDIR=" + quote(folder.file("tmp")) + "; exec 3<>" +
                              quote(pipe) + "; env --default-signal=INT " +
                              quote(KVOCAEIO_PROGRAM) + " info - <&3 & ";
    const std::string wait =
        "until ls " + quote(folder.file("tmp")) + "/*/input >/dev/null 2>&1; do sleep 0.01; done; ";
    for (const char* signal : {"INT", "TERM", "HUP"}) {
        const Outcome outcome = runShell(start + wait + "kill -" + signal + " $!; wait $!");
        EXPECT_GT(outcome.exitCode, 128);
        EXPECT_TRUE(std::filesystem::is_empty(folder.path() / "tmp"));
    }
}

TEST(FileSafety, NamesDoNotSteerTheTerminal) {
    const TempFolder folder;
    const std::string deck = folder.file("\x1b[31m\n\xc2\x9b.inp");
    const std::string out = folder.file("\x1b]0;title\x07.nas");
    EXPECT_EQ(runHost({"convert", deck, out}).errors,
              "kvocaeio: " + folder.file("?[31m??.inp") +
                  ": cannot be read: No such file or directory\n");
    EXPECT_THAT(runHost({"convert", sampleDeck("hinge.inp"), out}).output,
                testing::StartsWith(folder.file("?]0;title?.nas") + ": "));
}

#endif

}  // namespace
}  // namespace kvocaeio::test
