/// Nastran decks that nobody would wish for, and disks that refuse.
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "support/hostile_texts.h"
#include "tidy/tidied.h"

namespace {

namespace fs = std::filesystem;

using kvocaeio::test::readBytes;
using kvocaeio::test::repeated;
using kvocaeio::test::TempFolder;
using kvocaeio::test::Tidied;
using kvocaeio::test::tidyFile;
using kvocaeio::test::tidyText;
using kvocaeio::test::TimeLimit;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string kDeck = "GRID,1\nCBAR,1,1,1,1\n";

Tidied tidied(const std::string& deck) {
    return tidyText(deck, CKVODeckTidy::kNastran);
}

TEST(TidyNastranHostile, ReplicationThatMakesMoreThanAnyoneCanUse) {
    const TimeLimit limit(60.0);
    EXPECT_FALSE(
        tidied("CBAR,1,1,1,1\nGRID,1\n=,*1,==\n" + repeated("=(999999999)\n", 1000)).isDone);
}

TEST(TidyNastranHostile, LongChainsOfContinuations) {
    const TimeLimit limit;
    EXPECT_TRUE(tidied(kDeck + "SET,1\n" + repeated("+,1,2,3,4\n", 200'000)).isDone);
    std::string rings = kDeck + "CHEXA,2,1,1,1,1,1,1,1,+A\n";
    for (int i = 0; i < 10'000; ++i)
        rings += "+A,,,,,,,,,+A\n";
    EXPECT_FALSE(tidied(rings).isDone);
}

TEST(TidyNastranHostile, ContinuationsWithoutACard) {
    std::string strays = kDeck;
    for (int i = 0; i < 100'000; ++i)
        strays += "MAT1,1,,,,,,,,+X\n+M" + std::to_string(i) + ",1.\n";
    const TimeLimit limit;
    EXPECT_TRUE(tidied(strays).isDone);
}

TEST(TidyNastranHostile, AFrameOfEveryFrame) {
    std::string frames = "CBAR,1,1,1,1\nGRID,1,100000\n";
    for (int i = 1; i <= 100'000; ++i)
        frames += "CORD2R," + std::to_string(i) + "," + std::to_string(i - 1) +
                  ",0.,0.,0.,0.,0.,1.,+\n+,1.,0.,0.\n";
    const TimeLimit limit;
    EXPECT_TRUE(tidied(frames).isDone);
}

TEST(TidyNastranHostile, LinesWithoutAnEnd) {
    const TempFolder folder;
    const TimeLimit limit;
    fs::rename(kvocaeio::test::writeLongLine(folder, kDeck + "GRID,2", ','), folder.file("deck"));
    EXPECT_FALSE(tidyFile(folder, "deck", CKVODeckTidy::kNastran).isDone);
    fs::rename(kvocaeio::test::writeLongLine(folder, kDeck, ' '), folder.file("deck"));
    EXPECT_FALSE(tidyFile(folder, "deck", CKVODeckTidy::kNastran).isDone);
}

TEST(TidyNastranHostile, BytesOfEveryKind) {
    std::string bytes;
    for (int i = 0; i < 256; ++i)
        bytes += std::string("GRID,") + static_cast<char>(i) + "\n" + static_cast<char>(i) + ",1\n";
    EXPECT_FALSE(tidied(kDeck + bytes).isDone);
    const Tidied result = tidied("GRID,1\nGRID,2" + std::string(1, '\0') + "3\nCBAR,1,1,1,1\n");
    EXPECT_TRUE(result.isDone);
}

TEST(TidyNastranHostile, AByteThatEndsTheFileForTheReader) {
    const std::string grid = "GRID           1              1.      2.      3.\n";
    const std::string bar = "CBAR           9       1       1       2\n";
    const Tidied result = tidied("$ \x1A\n" + grid + bar);
    EXPECT_TRUE(result.isNeeded);
    EXPECT_EQ(result.text, "BEGIN BULK\n" + grid + bar + "ENDDATA\n");
}

TEST(TidyNastranHostile, NothingIsWrittenWhereTheDeckCannotBe) {
    const TempFolder folder;
    folder.write("tidied", "old");
    folder.write("deck", "GRID,1\nINCLUDE 'deck'\n");
    EXPECT_THAT(tidyFile(folder, "deck", CKVODeckTidy::kNastran).others,
                ElementsAre("2:1 tidy.include-cycle"));
    EXPECT_EQ(readBytes(folder.file("tidied")), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 2);
}

TEST(TidyNastranHostile, TheNewDeckReplacesNoFileThatIsRead) {
    const TempFolder folder;
    folder.write("part", "$ materials alone\n");
    folder.write("deck", kDeck + "INCLUDE 'part'\n");
    CKVODeckTidy tidy;
    CKVOImportReport report;
    for (const char* target : {"deck", "part"}) {
        const std::string before = readBytes(folder.file(target));
        EXPECT_FALSE(tidy.Tidy(folder.file("deck").c_str(), folder.file(target).c_str(),
                               CKVODeckTidy::kNastran, &report));
        EXPECT_EQ(report.GetCodeCount("tidy.output-is-input"), 1);
        EXPECT_EQ(readBytes(folder.file(target)), before);
    }
}

TEST(TidyNastranHostile, TheMapReplacesNoFileThatIsRead) {
    const TempFolder folder;
    const std::string part = folder.write("part", "$ materials alone\n");
    const std::string deck = folder.write("deck", kDeck + "INCLUDE 'part'\n");
    const std::string other = folder.write("other", "old");
    folder.makeFolder("sub");
    CKVODeckTidy tidy;
    EXPECT_FALSE(tidy.IsSource(deck.c_str()));
    ASSERT_TRUE(tidy.Tidy(deck.c_str(), nullptr, CKVODeckTidy::kNastran, nullptr));
    EXPECT_TRUE(tidy.IsSource((folder.file("sub") + "/../part").c_str()));
    EXPECT_TRUE(tidy.IsSource((folder.path() / "deck").wstring().c_str()));
    EXPECT_FALSE(tidy.IsSource(other.c_str()));
    EXPECT_FALSE(tidy.IsSource(folder.file("none").c_str()));
    EXPECT_FALSE(tidy.IsSource(static_cast<const char*>(nullptr)));
    EXPECT_FALSE(tidy.WriteMap(part.c_str()));
    EXPECT_FALSE(tidy.WriteMap(deck.c_str()));
    EXPECT_EQ(readBytes(part), "$ materials alone\n");
    EXPECT_TRUE(tidy.WriteMap(other.c_str()));
}

#if defined(__linux__)
TEST(TidyNastranHostile, AFullDiskLeavesNothing) {
    // A folder in memory that is as good as full for this process: files may not grow.
    const TempFolder folder;
    folder.write("deck", kDeck + repeated("GRID,1,,1.,2.,3.\n", 100'000));
    const std::string out = folder.file("tidied");
    const std::string command = "trap '' XFSZ; ulimit -f 100; exec '" TIDY_PROGRAM "' tidy '" +
                                folder.file("deck") + "' '" + out + "' >/dev/null 2>'" +
                                folder.file("errors") + "'";
    const int status = std::system(("bash -c \"" + command + "\"").c_str());
    EXPECT_NE(status, 0);
    EXPECT_THAT(readBytes(folder.file("errors")), HasSubstr("tidy.output-failed"));
    EXPECT_FALSE(fs::exists(out));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 2);
}
#endif

TEST(TidyNastranHostile, AFolderThatIsNotThere) {
    const TempFolder folder;
    const std::string deck = folder.write("deck", kDeck);
    CKVODeckTidy tidy;
    CKVOImportReport report;
    EXPECT_FALSE(tidy.Tidy(deck.c_str(), (folder.file("none") + "/tidied").c_str(),
                           CKVODeckTidy::kNastran, &report));
    CKVOImportReport::FindingData failure;
    ASSERT_TRUE(report.GetFailure(&failure));
    EXPECT_STREQ(failure.code, "tidy.output-failed");
}

}  // namespace
