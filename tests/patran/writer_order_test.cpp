/// The Patran writer's calls in and out of order.
#include <climits>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <new>
#include <string>

#include "patran/written_file.h"
#include "support/captured_output.h"

namespace kvocaeio::test {
namespace {

using testing::HasSubstr;

using PatranWriterOrder = PatranWriter;

TEST_F(PatranWriterOrder, EveryStepIsNeeded) {
    for (int missing = 0; missing < 5; ++missing) {
        CKVO_PATWriter_Bridge another;
        if (missing != 0)
            another.SetFilePath(path.c_str());
        if (missing != 1)
            another.SetNodeCount(1);
        if (missing != 2)
            another.SetNodeArray();
        if (missing != 3)
            another.SetElemCount(1);
        if (missing != 4) {
            EXPECT_EQ(another.SetElemArray(), missing != 3);
        }
        EXPECT_FALSE(another.WriteFile()) << missing;
        EXPECT_FALSE(std::filesystem::exists(path)) << missing;
    }
}

TEST_F(PatranWriterOrder, NodesAndElementsInAnyOrder) {
    writer.SetElemCount(1);
    writer.SetNodeCount(1);
    EXPECT_TRUE(writer.SetElemArray());
    addElement(0, {1, 1, 1, 1});
    writer.SetNodeArray();
    writer.SetFilePath(path.c_str());
    writer.AddNode(0, 0, 0, 0);
    EXPECT_EQ(written(),
              oneNode(" 2       1       5       2       0       0       0       080\n"
                      "       5       2       0\n"
                      "       1       1       1       1       0       0       0       0\n"));
}

TEST_F(PatranWriterOrder, CountsBelowOneMakeNoArrays) {
    for (const int count : {0, -1, INT_MIN}) {
        CKVO_PATWriter_Bridge noNodes, noElements;
        noNodes.SetFilePath(path.c_str());
        noNodes.SetNodeCount(count);
        noNodes.SetNodeArray();
        noNodes.SetElemCount(1);
        EXPECT_TRUE(noNodes.SetElemArray());
        EXPECT_FALSE(noNodes.WriteFile());
        noElements.SetFilePath(path.c_str());
        noElements.SetNodeCount(1);
        noElements.SetNodeArray();
        noElements.SetElemCount(count);
        EXPECT_FALSE(noElements.SetElemArray());
        EXPECT_FALSE(noElements.WriteFile());
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(PatranWriterOrder, ItemsAddedBeforeTheirArraysAreIgnored) {
    writer.AddNode(0, 1, 1, 1);
    addElement(0, {1, 2, 3, 4});
    begin(1, 1);
    EXPECT_EQ(written(), oneNode(" 2       1       0       2       0       0       0       080\n"
                                 "       0       2       0\n" +
                                 kNoNodes));
}

TEST_F(PatranWriterOrder, IndexesOutsideAreIgnored) {
    begin(1, 1);
    for (const int index : {INT_MIN, -1, 1, 2, INT_MAX}) {
        writer.AddNode(index, 1, 1, 1);
        addElement(index, {1, 2, 3, 4});
    }
    EXPECT_EQ(written(), oneNode(" 2       1       0       2       0       0       0       080\n"
                                 "       0       2       0\n" +
                                 kNoNodes));
}

TEST_F(PatranWriterOrder, ArraysMadeAgainAreEmpty) {
    begin(1, 1);
    writer.AddNode(0, 1, 1, 1);
    addElement(0, {1, 2, 3, 4});
    writer.SetNodeArray();
    EXPECT_TRUE(writer.SetElemArray());
    EXPECT_EQ(written(), oneNode(" 2       1       0       2       0       0       0       080\n"
                                 "       0       2       0\n" +
                                 kNoNodes));
}

TEST_F(PatranWriterOrder, CountsOfTheMomentAreWritten) {
    begin(2, 2);
    for (int i = 0; i < 2; ++i) {
        writer.AddNode(i, i + 1, 0, 0);
        addElement(i, {1, 2, 1, 2});
    }
    const std::string second =
        " 1       2       0       2       0       0       0       080\n"
        "    2.000000E+00    0.000000E+00    0.000000E+00\n";
    const std::string both = written();
    EXPECT_THAT(both, HasSubstr(second));
    // Fewer: the first ones.
    writer.SetNodeCount(1);
    writer.SetElemCount(1);
    const std::string fewer = written();
    EXPECT_THAT(fewer, HasSubstr("\n26       0       0       1       1       1       0       1"));
    EXPECT_THAT(fewer, HasSubstr("       0       2       1       1       0       181\n"));
    EXPECT_THAT(fewer, testing::Not(HasSubstr(second)));
    EXPECT_THAT(fewer, testing::Not(HasSubstr("\n 2       2")));
    // More: those beyond the arrays as if never added; the arrays still take what fits them.
    writer.SetNodeCount(3);
    writer.SetElemCount(4);
    writer.AddNode(2, 7, 7, 7);
    addElement(2, {7, 7, 7, 7});
    writer.AddNode(1, 9, 0, 0);
    EXPECT_THAT(
        written(),
        testing::EndsWith(
            " 1       2       0       2       0       0       0       080\n"
            "    9.000000E+00    0.000000E+00    0.000000E+00\n" +
            kLastCardOfANode + " 1       3       0       2       0       0       0       080\n" +
            kOrigin + kLastCardOfANode +
            " 2       1       5       2       0       0       0       080\n"
            "       5       2       0\n"
            "       1       2       1       2       0       0       0       0\n"
            " 2       2       5       2       0       0       0       080\n"
            "       5       2       0\n"
            "       1       2       1       2       0       0       0       0\n"
            " 2       3       0       2       0       0       0       080\n"
            "       0       2       0\n" +
            kNoNodes + " 2       4       0       2       0       0       0       080\n" +
            "       0       2       0\n" + kNoNodes + kEnd));
}

TEST_F(PatranWriterOrder, CountsOfZeroBehindTheArrays) {
    begin(1, 1);
    writer.SetNodeCount(0);
    writer.SetNodeArray();  // does nothing
    writer.SetElemCount(-5);
    EXPECT_FALSE(writer.SetElemArray());
    EXPECT_EQ(
        written(),
        kTitle + "26       0       0       1       0      -5       0       1       1\n\n" + kEnd);
    // The arrays are still there.
    writer.AddNode(0, 1, 0, 0);
    writer.SetNodeCount(1);
    EXPECT_THAT(written(), HasSubstr("    1.000000E+00    0.000000E+00    0.000000E+00\n"));
}

TEST_F(PatranWriterOrder, PathsThatCannotBeOpened) {
    begin(1, 1);
    CapturedOutput output;
    const std::string inNoFolder = folder.file("no such folder") + "/mesh.pat";
    writer.SetFilePath(inNoFolder.c_str());
    EXPECT_FALSE(writer.WriteFile());
    const std::string aFolder = folder.path().string();
    writer.SetFilePath(aFolder.c_str());
    EXPECT_FALSE(writer.WriteFile());
    writer.SetFilePath("");
    EXPECT_FALSE(writer.WriteFile());
    writer.SetFilePath(nullptr);
    EXPECT_FALSE(writer.WriteFile());
    // It recovers, and nothing was said.
    writer.SetFilePath(path.c_str());
    EXPECT_TRUE(writer.WriteFile());
    EXPECT_EQ(output.text(), "");
}

TEST_F(PatranWriterOrder, ThePathIsKeptAsAPointer) {
    begin(1, 1);
    std::string moved = path;
    writer.SetFilePath(moved.c_str());
    moved[moved.size() - 1] = 'x';
    EXPECT_TRUE(writer.WriteFile());
    EXPECT_TRUE(std::filesystem::exists(moved));
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(PatranWriterOrder, CopiesShareTheWriter) {
    alignas(CKVO_PATWriter_Bridge) unsigned char memory[2][sizeof(CKVO_PATWriter_Bridge)];
    // Never destroyed, as both would release what they share.
    auto* const copy = new (memory[0]) CKVO_PATWriter_Bridge(writer);
    CKVO_PATWriter_Bridge other;
    auto* const assigned = new (memory[1]) CKVO_PATWriter_Bridge(other);
    EXPECT_EQ(&(*assigned = writer), assigned);
    copy->SetFilePath(path.c_str());
    assigned->SetNodeCount(1);
    writer.SetNodeArray();
    copy->SetElemCount(1);
    EXPECT_TRUE(assigned->SetElemArray());
    EXPECT_TRUE(copy->WriteFile());
    EXPECT_FALSE(other.WriteFile());
}

}  // namespace
}  // namespace kvocaeio::test
