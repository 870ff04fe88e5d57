/// Disks and folders that refuse new decks and maps.
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/files.h"
#include <kvocaeio/report.h>
#include <kvocaeio/tidy.h>

namespace {

namespace fs = std::filesystem;

using kvocaeio::test::readBytes;
using kvocaeio::test::TempFolder;

constexpr int kNodes = 2000;

std::string nastranDeck(bool isPlain) {
    std::string deck = "CBAR           1       1       1       2\n";
    for (int i = 1; i <= kNodes; ++i) {
        const std::string number = std::to_string(i);
        deck += isPlain ? "GRID    " + std::string(8 - number.size(), ' ') + number + "\n"
                        : "GRID," + number + "\n";
    }
    return deck;
}

std::string abaqusDeck(bool isPlain) {
    std::string deck = isPlain ? "*NODE\n" : "*NODE\n\n";
    for (int i = 1; i <= kNodes; ++i)
        deck += std::to_string(i) + ", 0, 0, 1\n";
    return deck + "*ELEMENT, TYPE=S3\n1, 1, 2, 3\n";
}

struct Case {
    int format;
    bool isPlain;  // so that it is copied
};

class TidyDisk : public testing::TestWithParam<Case> {
  protected:
    TidyDisk() {
        const bool isNastran = GetParam().format == CKVODeckTidy::kNastran;
        deck_ = folder_.write(
            "deck", isNastran ? nastranDeck(GetParam().isPlain) : abaqusDeck(GetParam().isPlain));
        folder_.makeFolder("out");
        target_ = folder_.write("out/target", "old");
        map_ = folder_.write("out/map", "old");
    }

    // In a process of its own, which `prepare` puts into the state to be tested: 0 where nothing
    // can be written there.
    template <class Prepare>
    int triedElsewhere(const Prepare& prepare) {
        const pid_t child = fork();
        if (child == 0) {
            CKVODeckTidy examined;
            if (!examined.Tidy(deck_.c_str(), nullptr, GetParam().format, nullptr) ||
                examined.IsNeeded() == GetParam().isPlain)
                _exit(2);
            if (!prepare())
                _exit(3);
            if (examined.WriteMap(map_.c_str()))
                _exit(4);
            CKVODeckTidy tidy;
            CKVOImportReport report;
            CKVOImportReport::FindingData failure;
            if (tidy.Tidy(deck_.c_str(), target_.c_str(), GetParam().format, &report))
                _exit(5);
            _exit(report.GetFailure(&failure) &&
                          std::string("tidy.output-failed") == failure.code &&
                          tidy.GetNodeOriginNum() == 0
                      ? 0
                      : 6);
        }
        int status = -1;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    void expectNothingNew() {
        EXPECT_EQ(readBytes(target_), "old");
        EXPECT_EQ(readBytes(map_), "old");
        const fs::path out = folder_.path() / "out";
        EXPECT_EQ(std::distance(fs::directory_iterator(out), fs::directory_iterator()), 2);
    }

    TempFolder folder_;
    std::string deck_;
    std::string target_;
    std::string map_;
};

TEST_P(TidyDisk, AFullDiskLeavesTheOldFilesAlone) {
    EXPECT_EQ(triedElsewhere([] {
                  std::signal(SIGXFSZ, SIG_IGN);
                  const rlimit limit{4096, 4096};
                  return setrlimit(RLIMIT_FSIZE, &limit) == 0;
              }),
              0);
    expectNothingNew();
}

TEST_P(TidyDisk, AFolderThatMayNotBeWrittenToStaysAsItIs) {
    using fs::perms;
    constexpr perms kReadable =
        perms::owner_read | perms::owner_exec | perms::others_read | perms::others_exec;
    const fs::path out = folder_.path() / "out";
    fs::permissions(folder_.path(), kReadable | perms::owner_write);
    fs::permissions(deck_, perms::owner_read | perms::others_read);
    fs::permissions(out, kReadable);
    // To its owner of all rights no folder is locked.
    EXPECT_EQ(triedElsewhere([] { return geteuid() != 0 || seteuid(65534) == 0; }), 0);
    expectNothingNew();
    fs::permissions(out, kReadable | perms::owner_write);
}

INSTANTIATE_TEST_SUITE_P(, TidyDisk,
                         testing::Values(Case{CKVODeckTidy::kNastran, false},
                                         Case{CKVODeckTidy::kNastran, true},
                                         Case{CKVODeckTidy::kAbaqus, false},
                                         Case{CKVODeckTidy::kAbaqus, true}));

}  // namespace
