#include "tidy/output_file.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "support/files.h"

namespace {

namespace fs = std::filesystem;

using kvocaeio::test::readBytes;
using kvocaeio::test::TempFolder;
using kvocaeio::tidy::OutputFile;

std::ptrdiff_t filesIn(const TempFolder& folder) {
    return std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator());
}

TEST(TidyOutputFile, TheTargetIsTheOldFileUntilTheEnd) {
    const TempFolder folder;
    const std::string target = folder.write("target", "old");
    OutputFile out;
    ASSERT_TRUE(out.open(target));
    out.text("new ").text("content");
    EXPECT_EQ(readBytes(target), "old");
    ASSERT_TRUE(out.finish());
    EXPECT_EQ(readBytes(target), "new content");
    EXPECT_EQ(filesIn(folder), 1);
}

TEST(TidyOutputFile, WithoutAnEndNothingStays) {
    const TempFolder folder;
    const std::string target = folder.write("target", "old");
    {
        OutputFile out;
        ASSERT_TRUE(out.open(target));
        out.text("new");
        EXPECT_EQ(filesIn(folder), 2);
    }
    EXPECT_EQ(readBytes(target), "old");
    EXPECT_EQ(filesIn(folder), 1);
}

TEST(TidyOutputFile, AFolderIsNoTarget) {
    const TempFolder folder;
    OutputFile out;
    EXPECT_FALSE(out.open(folder.path()));
    EXPECT_EQ(out.error(), std::errc::is_a_directory);
    EXPECT_FALSE(OutputFile().open(folder.file("none") + "/target"));
    EXPECT_EQ(filesIn(folder), 0);
}

TEST(TidyOutputFile, WithoutATargetEverythingIsDropped) {
    OutputFile out;
    out.text("dropped");
    EXPECT_TRUE(out.finish());
}

TEST(TidyOutputFile, CopiesAFile) {
    const TempFolder folder;
    const std::string bytes = std::string(1'000'000, 'x') + '\0' + "\r\n";
    const std::string source = folder.write("source", bytes);
    OutputFile out;
    ASSERT_TRUE(out.open(folder.file("target")));
    ASSERT_TRUE(out.copy(source));
    ASSERT_TRUE(out.finish());
    EXPECT_EQ(readBytes(folder.file("target")), bytes);
}

TEST(TidyOutputFile, CopiesOfAllSizesHaveThatSize) {
    const TempFolder folder;
    for (const std::size_t size : {0U, 1U, 262'143U, 262'144U, 1'000'003U}) {
        std::string bytes(size, 'x');
        for (std::size_t at = 0; at < size; at += 7)
            bytes[at] = static_cast<char>('a' + at % 23);
        OutputFile out;
        ASSERT_TRUE(out.open(folder.file("target")));
        ASSERT_TRUE(out.copy(folder.write("source", bytes)));
        ASSERT_TRUE(out.finish());
        EXPECT_EQ(readBytes(folder.file("target")), bytes) << size;
    }
}

TEST(TidyOutputFile, NoCopyOfWhatIsNoFile) {
    const TempFolder folder;
    folder.makeFolder("other");
    for (const char* const source : {"none", "other"}) {
        OutputFile out;
        ASSERT_TRUE(out.open(folder.file("target")));
        EXPECT_FALSE(out.copy(folder.file(source)));
        EXPECT_TRUE(out.error()) << source;
    }
    EXPECT_FALSE(fs::exists(folder.path() / "target"));
}

#if !defined(_WIN32)
TEST(TidyOutputFile, ALinkStaysALink) {
    const TempFolder folder;
    folder.makeFolder("other");
    folder.write("other/target", "old");
    fs::create_symlink("other/target", folder.path() / "link");
    OutputFile out;
    ASSERT_TRUE(out.open(folder.file("link")));
    out.text("new");
    ASSERT_TRUE(out.finish());
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link"));
    EXPECT_EQ(readBytes(folder.file("other/target")), "new");
}

TEST(TidyOutputFile, ADeviceIsNoTarget) {
    EXPECT_FALSE(OutputFile().open("/dev/null"));
}
#endif

}  // namespace
