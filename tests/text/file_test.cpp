/// Facts of opening files, and of what is asked of the system.
#include "text/file.h"

#include <ctime>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "support/descriptors.h"
#include "support/files.h"
#include "text/platform.h"

#if !defined(_WIN32)
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#endif

namespace kvocaeio::text {
namespace {

std::string contentOf(const File& file) {
    std::string content(100, '\0');
    content.resize(std::fread(content.data(), 1, content.size(), file.get()));
    return content;
}

// The folder's name is plain ASCII, so that no conversion of the runtime's is in the way.
std::wstring wideFolder(const test::TempFolder& folder) {
    const std::string narrow = folder.path().string();
    return {narrow.begin(), narrow.end()};
}

TEST(OpenFile, NullPathAndMissingFileGiveNull) {
    const test::TempFolder folder;
    EXPECT_EQ(openFile(static_cast<const char*>(nullptr), "rb"), nullptr);
    EXPECT_EQ(openFile(static_cast<const wchar_t*>(nullptr), "rb"), nullptr);
    EXPECT_EQ(openFile(folder.file("missing").c_str(), "rb"), nullptr);
    EXPECT_EQ(openFile((wideFolder(folder) + L"/missing").c_str(), "rb"), nullptr);
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
    const std::wstring path = wideFolder(folder) + L"/geh\u00E4use \u6E2C \U00010330.inp";
    std::fputs("*NODE", openFile(path.c_str(), "wb").get());
    EXPECT_EQ(contentOf(openFile(path.c_str(), "rb")), "*NODE");
    EXPECT_TRUE(std::filesystem::exists(folder.path() / u8"geh\u00E4use \u6E2C \U00010330.inp"));
}

#if !defined(_WIN32)
TEST(OpenFile, WidePathWithoutUtf8FormGivesNull) {
    const test::TempFolder folder;
    const std::wstring front = wideFolder(folder) + L"/";
    for (const wchar_t bad : {wchar_t{0xD800}, wchar_t{0xDFFF}, wchar_t{0x110000}, wchar_t{-1}})
        EXPECT_EQ(openFile((front + bad).c_str(), "wb"), nullptr);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}
#endif

#if defined(_WIN32)
const char* const kDevice = "NUL";
const wchar_t* const kWideDevice = L"NUL";
#else
const char* const kDevice = "/dev/null";
const wchar_t* const kWideDevice = L"/dev/null";
#endif

TEST(OpenFile, OnlyRegularFilesAreRead) {
    const test::TempFolder folder;
    for (const char* mode : {"r", "rb", "r+b"}) {
        EXPECT_EQ(openFile(kDevice, mode), nullptr) << mode;
        EXPECT_EQ(openFile(kWideDevice, mode), nullptr) << mode;
        EXPECT_EQ(openFile(folder.path().string().c_str(), mode), nullptr) << mode;
        EXPECT_EQ(openFile(wideFolder(folder).c_str(), mode), nullptr) << mode;
    }
    EXPECT_NE(openFile(kDevice, "w"), nullptr);
    EXPECT_NE(openFile(kWideDevice, "w"), nullptr);
}

#if !defined(_WIN32)
TEST(OpenFile, APipeIsNotWaitedFor) {
    const test::TempFolder folder;
    const std::string path = folder.file("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    for (const char* mode : {"r+b", "rb"})
        EXPECT_EQ(openFile(path.c_str(), mode), nullptr) << mode;
}

TEST(OpenFile, ASocketIsNoFile) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const test::TempFolder folder;
    folder.file("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(openFile(folder.file("socket").c_str(), "rb"), nullptr);
    test::closeDescriptor(listener);
}

TEST(RewindFile, APipeHasNoBeginning) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const File reading(fdopen(ends[0], "rb"));
    EXPECT_FALSE(rewindFile(reading.get()));
    test::closeDescriptor(ends[1]);
}
#endif

/// Has no standard streams, as a host may have none, until it goes away.
class WithoutStandardStreams {
  public:
    WithoutStandardStreams() {
        std::fflush(stdout);
        for (int stream = 0; stream < 3; ++stream)
            saved_[stream] = test::duplicate(stream);
        for (int stream = 0; stream < 3; ++stream)
            test::closeDescriptor(stream);
    }
    ~WithoutStandardStreams() {
        for (int stream = 0; stream < 3; ++stream) {
            test::redirect(saved_[stream], stream);
            test::closeDescriptor(saved_[stream]);
        }
    }
    WithoutStandardStreams(const WithoutStandardStreams&) = delete;
    WithoutStandardStreams& operator=(const WithoutStandardStreams&) = delete;

  private:
    int saved_[3];
};

TEST(OpenFile, NeverTakesTheDescriptorOfAStandardStream) {
    const test::TempFolder folder;
    const std::string path = folder.write("deck.inp", "*NODE");
    const std::wstring widePath = wideFolder(folder) + L"/deck.inp";
    for (const char* mode : {"rb", "r+b", "a+", "w"}) {
        int narrow = 0;
        int wide = 0;
        bool isFree = false;
        std::string content;
        {
            const WithoutStandardStreams none;
            const File first = openFile(path.c_str(), mode);
            const File second = openFile(widePath.c_str(), mode);
            narrow = first == nullptr ? -1 : test::descriptorOf(first.get());
            wide = second == nullptr ? -1 : test::descriptorOf(second.get());
            isFree = test::duplicate(narrow) == 0;
            test::closeDescriptor(0);
            if (first != nullptr && *mode == 'r')
                content = contentOf(first);
            else if (first != nullptr)
                std::fputs("+", first.get());
        }
        EXPECT_GT(narrow, 2) << mode;
        EXPECT_GT(wide, 2) << mode;
        EXPECT_TRUE(isFree) << mode << ": a descriptor is left open";
        EXPECT_EQ(content, *mode == 'r' ? "*NODE" : "") << mode;
        EXPECT_EQ(test::readBytes(path), *mode == 'a'   ? "*NODE+"
                                         : *mode == 'w' ? "+"
                                                        : "*NODE")
            << mode;
    }
}

TEST(Platform, LocalTimeLeavesTheHostsResultAlone) {
    std::time_t year2000 = 946'728'000;  // noon of January 1 in Greenwich
    const std::tm* const hosts = std::localtime(&year2000);
    ASSERT_NE(hosts, nullptr);
    const std::tm before = *hosts;
    std::tm local{};
    ASSERT_TRUE(toLocalTime(year2000 + 400 * 86400, local));
    EXPECT_EQ(hosts->tm_year, 100);
    EXPECT_EQ(local.tm_year, 101);
    ASSERT_TRUE(toLocalTime(year2000, local));
    EXPECT_EQ(local.tm_hour, before.tm_hour);
    EXPECT_EQ(local.tm_mday, before.tm_mday);
    EXPECT_EQ(local.tm_isdst, before.tm_isdst);
}

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
