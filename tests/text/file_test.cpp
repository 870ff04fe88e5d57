/// Facts of opening files, and of what is asked of the system.
#include "text/file.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "support/files.h"
#include "text/platform.h"

namespace kvocaeio::text {
namespace {

std::string contentOf(const File& file) {
    std::string content(100, '\0');
    content.resize(std::fread(content.data(), 1, content.size(), file.get()));
    return content;
}

TEST(OpenFile, NullPathAndMissingFileGiveNull) {
    const test::TempFolder folder;
    EXPECT_EQ(openFile(static_cast<const char*>(nullptr), "rb"), nullptr);
    EXPECT_EQ(openFile(static_cast<const wchar_t*>(nullptr), "rb"), nullptr);
    EXPECT_EQ(openFile(folder.file("missing").c_str(), "rb"), nullptr);
    EXPECT_EQ(openFile((folder.path() / "missing").wstring().c_str(), "rb"), nullptr);
    EXPECT_EQ(openFile("", "rb"), nullptr);
    EXPECT_EQ(openFile(L"", "rb"), nullptr);
}

TEST(OpenFile, NarrowPathReadsAndWrites) {
    const test::TempFolder folder;
    const std::string path = folder.write("deck.inp", "*NODE\n");
    EXPECT_EQ(contentOf(openFile(path.c_str(), "rb")), "*NODE\n");
    std::fputs("*END", openFile(path.c_str(), "r+b").get());
    EXPECT_EQ(test::readBytes(path), "*ENDE\n");
}

TEST(OpenFile, WidePathOpensAnyName) {
    const test::TempFolder folder;
    // Two, three and four bytes of UTF-8 per character: a u umlaut, a Chinese sign, a gothic
    // letter.
    const auto path = folder.path() / L"geh\u00E4use \u6E2C \U00010330.inp";
    std::fputs("*NODE", openFile(path.wstring().c_str(), "wb").get());
    EXPECT_EQ(contentOf(openFile(path.wstring().c_str(), "rb")), "*NODE");
    EXPECT_TRUE(std::filesystem::exists(path));
#if !defined(_WIN32)
    EXPECT_TRUE(std::filesystem::exists(folder.path() /
                                        "geh\xC3\xA4use \xE6\xB8\xAC \xF0\x90\x8C\xB0.inp"));
#endif
}

#if !defined(_WIN32)
TEST(OpenFile, WidePathWithoutUtf8FormGivesNull) {
    const test::TempFolder folder;
    const std::wstring front = folder.path().wstring() + L"/";
    for (const wchar_t bad : {wchar_t{0xD800}, wchar_t{0xDFFF}, wchar_t{0x110000}, wchar_t{-1}})
        EXPECT_EQ(openFile((front + bad).c_str(), "wb"), nullptr);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}
#endif

TEST(Platform, ReadableAndWritable) {
    const test::TempFolder folder;
    EXPECT_TRUE(isReadableAndWritable(folder.path().string().c_str()));
    EXPECT_TRUE(isReadableAndWritable(folder.write("file", "").c_str()));
    EXPECT_FALSE(isReadableAndWritable(folder.file("missing").c_str()));
}

TEST(Platform, SeparatorsAndDrives) {
#if defined(_WIN32)
    EXPECT_EQ(kPathSeparator, '\\');
    EXPECT_EQ(kPathSeparators, "\\/");
    EXPECT_EQ(driveLength("C:\\decks\\a.inp"), 2U);
    EXPECT_EQ(driveLength("C:"), 2U);
    EXPECT_EQ(driveLength("\\decks"), 0U);
    EXPECT_EQ(driveLength("C"), 0U);
#else
    EXPECT_EQ(kPathSeparator, '/');
    EXPECT_EQ(kPathSeparators, "/");
    EXPECT_EQ(driveLength("C:/decks/a.inp"), 0U);
#endif
    EXPECT_EQ(driveLength(""), 0U);
}

}  // namespace
}  // namespace kvocaeio::text
