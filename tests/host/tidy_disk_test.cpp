/// Folders and disks that take neither a new deck nor a map.
#if !defined(_WIN32)
#include <gmock/gmock.h>
#include <unistd.h>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::string_view kSmallDeck = "GRID,1\nCBAR,1,1,1,1\n";
constexpr std::string_view kTidyDeck =
    "GRID           1              0.      0.      0.\n"
    "CBAR           1       1       1       1\n";

class TidyOnDisk : public testing::Test {
  protected:
    TempFolder folder_;
    std::string deck_ = folder_.write("part.bdf", kSmallDeck);
    std::string out_ = folder_.file("out.nas");
};

TEST_F(TidyOnDisk, WithoutRoomForATemporaryDeckOthersAreReadStill) {
    const std::string plain = folder_.write("plain.nas", kTidyDeck);
    const std::string program = "TMPDIR=" + quote(folder_.file("none")) + " " + KVOCAEIO_PROGRAM;
    EXPECT_EQ(runShell(program + " info --tidy " + quote(plain)).exitCode, 0);
    const Outcome outcome = runShell(program + " info --tidy " + quote(deck_));
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, "kvocaeio: " + deck_ +
                                  ": cannot be tidied in a temporary file: cannot be written: No "
                                  "such file or directory\n");
    EXPECT_EQ(runShell(program + " check --tidy " + quote(deck_)).exitCode, 3);
}

TEST_F(TidyOnDisk, AFullDeviceIsNoTarget) {
    const Outcome outcome = runHost({"tidy", deck_, "/dev/full"});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("the new deck cannot be written: "));
    const Outcome map = runHost({"tidy", deck_, out_, "--map", "/dev/full"});
    EXPECT_EQ(map.exitCode, 1);
    EXPECT_THAT(namesIn(folder_), ElementsAre("part.bdf"));
}

TEST_F(TidyOnDisk, AFullDiskTakesNeitherDeckNorMap) {
    std::string nodes;
    for (int i = 6; i <= 500; ++i)
        nodes += "GRID," + std::to_string(2 * i) + "\n";
    folder_.write("part.bdf", nodes + std::string(kSmallDeck));
    folder_.write("map.txt", "keep me");
    for (const std::string kilobytes : {"4", "14", "30"}) {  // the map is the larger one
        const Outcome outcome = runShell("trap '' XFSZ; ulimit -f " + kilobytes + "; " +
                                         quote(KVOCAEIO_PROGRAM) + " tidy " + quote(deck_) + " " +
                                         quote(out_) + " --map " + quote(folder_.file("map.txt")));
        EXPECT_EQ(outcome.exitCode, 1) << kilobytes;
        EXPECT_THAT(outcome.errors, HasSubstr("the disk may be full"));
        EXPECT_EQ(readText(folder_.file("map.txt")), "keep me");
        EXPECT_THAT(namesIn(folder_), ElementsAre("map.txt", "part.bdf"));
    }
}

TEST_F(TidyOnDisk, AFolderThatMayNotBeWrittenTo) {
    using std::filesystem::perms;
    folder_.makeFolder("locked");
    const std::filesystem::path locked = folder_.path() / "locked";
    std::filesystem::permissions(
        locked, perms::owner_read | perms::owner_exec | perms::others_read | perms::others_exec);
    std::filesystem::permissions(folder_.path(), perms::all);
    // To its owner of all rights nothing is locked.
    const std::string other =
        geteuid() == 0 ? "setpriv --reuid=65534 --regid=65534 --clear-groups " : "";
    const std::string program = other + quote(KVOCAEIO_PROGRAM);
    if (runShell(program + " --version").exitCode != 0)
        GTEST_SKIP() << "nobody else can run the program";
    const std::string target = quote((locked / "out.nas").string());
    const Outcome outcome = runShell(program + " tidy " + quote(deck_) + " " + target);
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("the new deck cannot be written: Permission denied"));
    const Outcome map =
        runShell(program + " tidy " + quote(deck_) + " " + quote(out_) + " --map " + target);
    EXPECT_EQ(map.exitCode, 1);
    EXPECT_TRUE(std::filesystem::is_empty(locked));
    EXPECT_FALSE(std::filesystem::exists(out_));
}

}  // namespace
}  // namespace kvocaeio::test

#endif
