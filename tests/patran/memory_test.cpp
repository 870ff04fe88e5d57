/// Memory and time of imports that could ask for far too much; a program of its own, as the peak of
/// a process never falls again.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "patran/neutral_file.h"
#include "support/captured_output.h"
#include "support/files.h"
#include "support/hostile_texts.h"
#include "support/peak_memory.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;

template <class Reader>
bool importQuietly(Reader& reader, const std::string& path) {
    const TimeLimit limit(60.0);
    CapturedOutput output;
    return reader.ImportFromPatFile(path.c_str());
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
