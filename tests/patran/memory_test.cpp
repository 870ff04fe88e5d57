/// Memory and time of imports that could ask for far too much; a program of its own, as the peak of
/// a process never falls again.
#include <chrono>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "patran/neutral_file.h"
#include "support/captured_output.h"
#include "support/files.h"

#if !defined(_WIN32)
#include <sys/resource.h>
#endif

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kMemoryCounts = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool kMemoryCounts = false;
#else
constexpr bool kMemoryCounts = true;
#endif
#else
constexpr bool kMemoryCounts = true;
#endif

/// Peak memory of this process in MiB; 0 where it cannot be told.
double peakMemory() {
#if defined(_WIN32)
    return 0.0;
#else
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return kMemoryCounts ? static_cast<double>(usage.ru_maxrss) / 1024.0 : 0.0;
#endif
}

template <class Reader>
bool importQuietly(Reader& reader, const std::string& path) {
    CapturedOutput output;
    const auto start = std::chrono::steady_clock::now();
    const bool result = reader.ImportFromPatFile(path.c_str());
    const auto time = std::chrono::steady_clock::now() - start;
    EXPECT_LT(std::chrono::duration<double>(time).count(), 60.0);
    return result;
}

/// A file of `begin` and then 100 MB of `filler`, without a single line end behind `begin`.
std::string writeLongLine(const TempFolder& folder, const std::string& begin, char filler) {
    const std::string path = folder.file("mesh.pat");
    std::ofstream out(path, std::ios::binary);
    out << begin;
    const std::string chunk(1000000, filler);
    for (int megabyte = 0; megabyte < 100; ++megabyte)
        out << chunk;
    return path;
}

TEST(PatranMemory, CountsOfASummary) {
    TempFolder folder;
    const std::string path =
        folder.write("mesh.pat", summary(20000000, 10000000, 99999999) + node(4, 1, 2, 3) +
                                     node(5, 4, 5, 6) + element(1, 2, 1, {4, 5}) + endOfFile());
    CPatranReader flat;
    ASSERT_TRUE(importQuietly(flat, path));
    EXPECT_EQ(flat.GetNodeCout(), 20000000);
    EXPECT_EQ(flat.GetElemCount(), 10000000);
    int type = 0, property = 0, nodes[8] = {};
    ASSERT_TRUE(flat.GetElement(0, type, property, nodes));
    EXPECT_THAT(nodes, ElementsAre(0, 1, 0, 0, 0, 0, 0, 0));
    ASSERT_TRUE(flat.GetElement(9999999, type, property, nodes));
    EXPECT_THAT(nodes, ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
    float x = -7, y = -7, z = -7;
    ASSERT_TRUE(flat.GetNode(19999999, x, y, z));
    EXPECT_EQ(x, 0);
    CKVO_PatranIO_Bridge bridge;
    ASSERT_TRUE(importQuietly(bridge, path));
    EXPECT_EQ(bridge.GetNodeCount(), 2);
    EXPECT_LT(peakMemory(), 100.0);
}

TEST(PatranMemory, IdsOfEightColumns) {
    TempFolder folder;
    const std::string path =
        folder.write("mesh.pat", summary(2, 1, 1) + "4 16777215 0 1 2 0 0 0 0\n2 1\n" +
                                     node(99999999, 1, 2, 3) + node(98765432, 4, 5, 6) +
                                     element(1, 2, 16777215, {98765432, 99999999}) + endOfFile());
    for (int round = 0; round < 20; ++round) {
        CPatranReader flat;
        ASSERT_TRUE(importQuietly(flat, path));
        EXPECT_THAT(flatElementsOf(flat),
                    ElementsAre(FlatElement{2, 16777215, {1, 0, 0, 0, 0, 0, 0, 0}}));
        CKVO_PatranIO_Bridge bridge;
        ASSERT_TRUE(importQuietly(bridge, path));
        EXPECT_THAT(elementsOf(bridge), ElementsAre(ElementData{{1, 0, 0, 0}, 10, 0, 1, 1}));
    }
    EXPECT_LT(peakMemory(), 100.0);
}

TEST(PatranMemory, ALineOf100Megabytes) {
    TempFolder folder;
    const std::string path = writeLongLine(folder, summary(1, 0) + node(1, 1, 2, 3), '7');
    CPatranReader flat;
    EXPECT_TRUE(importQuietly(flat, path));
    EXPECT_EQ(flat.GetNodeCout(), 1);
    CKVO_PatranIO_Bridge bridge;
    EXPECT_TRUE(importQuietly(bridge, path));
    EXPECT_EQ(bridge.GetNodeCount(), 1);
    EXPECT_LT(peakMemory(), 100.0);
}

TEST(PatranMemory, ASkippedLineOf100Megabytes) {
    TempFolder folder;
    const std::string path = writeLongLine(folder, summary(1, 0) + header(6, 0, 0, 99999999), '\0');
    CPatranReader flat;
    EXPECT_TRUE(importQuietly(flat, path));
    CKVO_PatranIO_Bridge bridge;
    EXPECT_TRUE(importQuietly(bridge, path));
    EXPECT_EQ(bridge.GetNodeCount(), 0);
    EXPECT_LT(peakMemory(), 100.0);
}

}  // namespace
}  // namespace kvocaeio::test
