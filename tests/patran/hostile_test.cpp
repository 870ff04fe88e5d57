/// Neutral files and disks that nobody would wish for: an answer in time, and nothing worse.
#include <climits>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "patran/neutral_file.h"
#include "support/captured_output.h"
#include "support/files.h"
#include "support/hostile_texts.h"
#include "support/peak_memory.h"

#if defined(__linux__)
#include <sys/stat.h>
#endif

namespace kvocaeio::test {
namespace {

using testing::Each;
using testing::ElementsAre;

/// A file imported by both readers within a limit of time.
struct TimedImport {
    explicit TimedImport(std::string_view file) {
        const std::string path = folder.write("mesh.pat", file);
        const TimeLimit limit;
        CapturedOutput output;
        EXPECT_TRUE(bridge.ImportFromPatFile(path.c_str()));
        flatResult = flat.ImportFromPatFile(path.c_str());
        printed = output.text();
    }

    TempFolder folder;
    CKVO_PatranIO_Bridge bridge;
    CPatranReader flat;
    bool flatResult = false;
    std::string printed;
};

/// Packet 4 with any numbers: its header is read freely, and stands for those behind it.
std::string freeHeader(const std::string& numbers) {
    return "4 " + numbers + "\n" + reals({2, 1});
}

TEST(PatranHostile, TheHighestCountsOfASummary) {
    TimedImport mesh(summary(99999999, 99999999, 99999999) + node(1, 1, 2, 3) +
                     element(1, 2, 1, {1, 1}) + endOfFile());
    EXPECT_EQ(mesh.bridge.GetNodeCount(), 1);
    EXPECT_EQ(mesh.bridge.GetElementCount(), 1);
    // Whether there is memory for the arrays is the system's affair.
    const int count = mesh.flatResult ? 99999999 : 0;
    EXPECT_EQ(mesh.flat.GetNodeCout(), count);
    EXPECT_EQ(mesh.flat.GetElemCount(), count);
    EXPECT_EQ(mesh.flat.GetPropertyCount(), count);
    float x = -7, y = -7, z = -7;
    EXPECT_EQ(mesh.flat.GetNode(0, x, y, z), mesh.flatResult);
    EXPECT_EQ(x, mesh.flatResult ? 1 : -7);
    EXPECT_EQ(mesh.flat.GetNode(99999998, x, y, z), mesh.flatResult);
    int type = -7, property = -7, nodes[8] = {};
    EXPECT_EQ(mesh.flat.GetElement(99999998, type, property, nodes), mesh.flatResult);
    EXPECT_EQ(type, mesh.flatResult ? 0 : -7);
}

TEST(PatranHostile, CountsAtTheEndsOfInt) {
    // The short summary takes the counts of the property before; the flat reader clears them.
    for (const char* numbers : {"2147483647", "-2147483648"}) {
        const std::string n = numbers;
        TimedImport mesh(summary(0, 0, 1) + freeHeader("1 0 1 " + n + " " + n + " 0 " + n) +
                         "26\ndate\n" + node(1, 1, 2, 3) + element(1, 2, 1, {1, 1}) + endOfFile());
        const int stored = n[0] == '-' ? 0 : 1;
        EXPECT_EQ(mesh.bridge.GetNodeCount(), stored);
        EXPECT_EQ(mesh.bridge.GetElementCount(), stored);
        EXPECT_EQ(nodeOf(mesh.bridge, INT_MAX - 1), (Point{0, 0, 0}));
        EXPECT_EQ(elementOf(mesh.bridge, INT_MAX - 1).type, 13);
        EXPECT_TRUE(mesh.flatResult);
        EXPECT_EQ(mesh.flat.GetNodeCout(), 0);
    }
}

TEST(PatranHostile, NodeIdsAtTheEndsOfInt) {
    // A node without an id takes that of the property before; the first pass does not know it.
    for (const char* id : {"2147483647    0    ", "-2147483648   0    "}) {
        TimedImport mesh(summary(2, 1, 1) + freeHeader(std::string(id) + "1") +
                         " 1                       2\n" + reals({1, 2, 3}) + "x\n" +
                         node(7, 4, 5, 6) + element(1, 2, 1, {7, 99999999}) + endOfFile());
        EXPECT_THAT(nodesOf(mesh.bridge), ElementsAre(Point{1, 2, 3}, Point{4, 5, 6}));
        EXPECT_THAT(elementsOf(mesh.bridge), ElementsAre(ElementData{{1, 0, 0, 0}, 14, 0, 0, 0}));
        EXPECT_THAT(flatNodesOf(mesh.flat), ElementsAre(Point{1, 2, 3}, Point{4, 5, 6}));
        EXPECT_THAT(flatElementsOf(mesh.flat),
                    ElementsAre(FlatElement{2, 1, {1, 0, 0, 0, 0, 0, 0, 0}}));
    }
}

TEST(PatranHostile, NodeIdsOfEightColumns) {
    TimedImport mesh(summary(3, 1) + node(99999999, 1, 2, 3) + node(-9999999, 4, 5, 6) +
                     node(99999998, 7, 8, 9) + element(1, 4, 1, {99999998, -9999999, 99999999, 1}) +
                     endOfFile());
    EXPECT_THAT(elementsOf(mesh.bridge), ElementsAre(ElementData{{2, 0, 0, 0}, 4, 0, 0, 0}));
    EXPECT_THAT(flatElementsOf(mesh.flat),
                ElementsAre(FlatElement{4, 1, {2, 0, 0, 0, 0, 0, 0, 0}}));
}

TEST(PatranHostile, SkippingMoreCardsThanThereAre) {
    for (const std::string& skipping :
         {header(6, 0, 0, 99999999), freeHeader("1 0 2147483647") + " 6\n"}) {
        TimedImport mesh(summary(1, 0, 1) + node(1, 1, 2, 3) + skipping + repeated("\n", 1000));
        EXPECT_THAT(nodesOf(mesh.bridge), ElementsAre(Point{1, 2, 3}));
        EXPECT_THAT(flatNodesOf(mesh.flat), ElementsAre(Point{1, 2, 3}));
        EXPECT_EQ(mesh.printed, kMetEndTwice);
    }
    TimedImport negative(summary(1, 0, 1) + freeHeader("1 0 -2147483648") + " 6\n" +
                         node(1, 1, 2, 3) + endOfFile());
    EXPECT_THAT(nodesOf(negative.bridge), ElementsAre(Point{1, 2, 3}));
    EXPECT_THAT(flatNodesOf(negative.flat), ElementsAre(Point{1, 2, 3}));
}

TEST(PatranHostile, BlankLinesStayLinear) {
    const std::string blanks = repeated("\n", 300000);
    // One header, and then two blank lines at a time for cards: 100,000 nodes of one id.
    TimedImport nodes(summary(99999, 0) + node(7, 1, 2, 3) + blanks + endOfFile());
    EXPECT_EQ(nodes.bridge.GetNodeCount(), 99999);
    EXPECT_EQ(nodeOf(nodes.bridge, 99998), (Point{0, 0, 0}));
    TimedImport elements(summary(1, 99999) + node(7, 1, 2, 3) + element(1, 4, 0, {7, 7, 7, 7}) +
                         blanks + endOfFile());
    EXPECT_EQ(elements.bridge.GetElementCount(), 99999);
    TimedImport properties(summary(0, 0, 99999) + property(7, 2, {2, 1}) + blanks + endOfFile());
    EXPECT_EQ(properties.flat.GetPropertyCount(), 99999);
    TimedImport summaries(summary(100, 100, 7) + blanks + endOfFile());
    EXPECT_EQ(summaries.flat.GetPropertyCount(), 0);
    TimedImport skipped(summary(1, 0) + header(6, 0, 0, 99999999) + blanks);
    TimedImport alone(blanks);
    EXPECT_EQ(alone.printed, kMetEndTwice);
}

TEST(PatranHostile, CommentsStayLinear) {
    TimedImport mesh(repeated("! comment\n", 200000) + summary(1, 0) + repeated("!\n", 200000) +
                     node(1, 1, 2, 3) + repeated("!\n", 200000) + endOfFile());
    EXPECT_THAT(nodesOf(mesh.bridge), ElementsAre(Point{1, 2, 3}));
    EXPECT_THAT(flatNodesOf(mesh.flat), ElementsAre(Point{1, 2, 3}));
}

TEST(PatranHostile, SummariesOfManyRowsAgainAndAgain) {
    // A sanitizer marks every byte of an array that is made.
    constexpr int kSummaries = kMemoryCounts ? 5000 : 100;
    TimedImport mesh(repeated(summary(2000000, 1000000), kSummaries) + node(1, 1, 2, 3) +
                     endOfFile());
    EXPECT_EQ(mesh.bridge.GetNodeCount(), 1);
    EXPECT_TRUE(mesh.flatResult);
    EXPECT_EQ(mesh.flat.GetNodeCout(), 2000000);
}

TEST(PatranHostile, PropertiesFarApart) {
    std::string file = summary(1, 2, 99999);
    for (int k = 0; k < 20000; ++k)
        file += "4 " + std::to_string(k % 2 == 0 ? k : 16777215 - k) + " 0 1 2 0 0 0 0\n2 0.5\n";
    TimedImport mesh(file + node(1, 1, 2, 3) + element(1, 2, 16777214, {1, 1}) +
                     element(2, 2, 8000000, {1, 1}) + endOfFile());
    EXPECT_THAT(elementsOf(mesh.bridge), ElementsAre(ElementData{{0, 0, 0, 0}, 10, 0, 0.5, 0.5},
                                                     ElementData{{0, 0, 0, 0}, 0, 0, 0, 0}));
}

TEST(PatranHostile, NulBytesOnly) {
    TimedImport alone(std::string(1000000, '\0'));
    EXPECT_EQ(alone.bridge.GetNodeCount(), 0);
    EXPECT_EQ(alone.printed, kMetEndTwice);
    // 224 bytes to a line: 4465 lines behind the node, three to each node more.
    TimedImport mesh(summary(5000, 0) + node(1, 1, 2, 3) + std::string(1000000, '\0'));
    EXPECT_EQ(mesh.bridge.GetNodeCount(), 1 + 4465 / 3 + 1);
}

TEST(PatranHostile, AMegabyteOfOneLine) {
    // 4465 pieces of 224 digits: none is a packet that is known.
    TimedImport digits(summary(5000, 5000) + std::string(1000000, '7') + "\n");
    EXPECT_EQ(digits.bridge.GetNodeCount(), 0);
    // " 1      1" and so on: each piece of 224 is a header, and two more are its cards.
    TimedImport nodes(summary(5000, 0) + repeated(" 1      1       2", 60000) + "\n");
    EXPECT_GT(nodes.bridge.GetNodeCount(), 100);
    EXPECT_EQ(nodes.flat.GetNodeCout(), 5000);
}

#if defined(__linux__)
TEST(PatranHostile, AnotherProcessWritesItMeanwhile) {
    // The counts and ids of one state never fit the other.
    std::string backwards = summary(9000, 9000);
    for (int i = 9000; i > 0; --i)
        backwards += node(50000 - i, i, 0, 0);
    const RestlessFile file({summary(20000, 3) + repeated(node(1, 1, 2, 3), 20000),
                             summary(1, 20000) + node(99999999, 1, 2, 3) +
                                 repeated(element(1, 8, 1, {1, 99999999, 3, 4, 5, 6, 7, 8}), 20000),
                             backwards,
                             repeated(summary(7, 7, 7) + property(1000, 2, {2, 1}), 4000)});
    CapturedOutput output;
    for (int round = 0; round < 30; ++round) {
        CKVO_PatranIO_Bridge bridge;
        EXPECT_TRUE(bridge.ImportFromPatFile(file.path().c_str()));
        EXPECT_EQ(nodesOf(bridge).size(), static_cast<std::size_t>(bridge.GetNodeCount()));
        for (const ElementData& element : elementsOf(bridge))
            ASSERT_THAT(element.nodes, Each(testing::Lt(bridge.GetNodeCount() + 1)));
        CPatranReader flat;
        EXPECT_TRUE(flat.ImportFromPatFile(file.path().c_str()));
        EXPECT_EQ(flatNodesOf(flat).size(), static_cast<std::size_t>(flat.GetNodeCout()));
        EXPECT_EQ(flatElementsOf(flat).size(), static_cast<std::size_t>(flat.GetElemCount()));
    }
}

TEST(PatranHostile, WhatIsNoRegularFileCannotBeOpened) {
    const TempFolder folder;
    const std::string pipe = folder.file("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path : {std::string("/dev/null"), folder.path().string(), pipe}) {
        CKVO_PatranIO_Bridge bridge;
        EXPECT_FALSE(bridge.ImportFromPatFile(path.c_str())) << path;
        CPatranReader flat;
        CapturedOutput output;
        EXPECT_FALSE(flat.ImportFromPatFile(path.c_str())) << path;
        EXPECT_EQ(output.text(), "File Not Found : " + path + "\n");
    }
}

TEST(PatranHostile, TheDiskUnderTheWriterIsFull) {
    for (const int count : {1, 20000}) {
        CKVO_PATWriter_Bridge writer;
        writer.SetFilePath("/dev/full");
        writer.SetNodeCount(count);
        writer.SetNodeArray();
        writer.SetElemCount(count);
        ASSERT_TRUE(writer.SetElemArray());
        CapturedOutput output;
        EXPECT_TRUE(writer.WriteFile());
        EXPECT_TRUE(writer.WriteFile());
        EXPECT_EQ(output.text(), "");
    }
}
#endif

}  // namespace
}  // namespace kvocaeio::test
