/// The flat reader before, between and after imports.
#include <array>
#include <climits>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "patran/neutral_file.h"
#include "patran/reader_lifecycle.h"
#include "support/captured_output.h"

#if defined(__linux__)
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using PatranReaderLifecycle = PatranLifecycle;

TEST_F(PatranReaderLifecycle, BeforeAnImport) {
    CPatranReader reader;
    EXPECT_EQ(reader.GetNodeCout(), 0);
    EXPECT_EQ(reader.GetElemCount(), 0);
    EXPECT_EQ(reader.GetPropertyCount(), 0);
    for (const int index : {INT_MIN, -1, 0, 1, INT_MAX}) {
        float x = -7, y = -7, z = -7;
        EXPECT_FALSE(reader.GetNode(index, x, y, z));
        EXPECT_EQ(x, -7);
        int type = -7, property = -7, nodes[8] = {};
        EXPECT_FALSE(reader.GetElement(index, type, property, nodes));
        EXPECT_EQ(type, -7);
    }
    float vertex[1][3] = {{-7, -7, -7}};
    int type = -7, nodes[1][8] = {{-7}};
    for (const int count : {INT_MIN, -1, 0, 1, INT_MAX}) {
        reader.GetVertex(vertex, count);
        reader.GetElemType(&type, count);
        reader.GetElemNode(nodes, count);
    }
    EXPECT_EQ(vertex[0][0], -7);
    EXPECT_EQ(type, -7);
    EXPECT_EQ(nodes[0][0], -7);
}

TEST_F(PatranReaderLifecycle, IndexesOutside) {
    CPatranReader reader;
    ASSERT_TRUE(reader.ImportFromPatFile(small.c_str()));
    float x = -7, y = -7, z = -7;
    for (const int index : {INT_MIN, -1, 2, 3, INT_MAX})
        EXPECT_FALSE(reader.GetNode(index, x, y, z));
    EXPECT_EQ(x, -7);
    EXPECT_TRUE(reader.GetNode(1, x, y, z));
    EXPECT_EQ(x, 4);
    int type = -7, property = -7, nodes[8] = {};
    for (const int index : {INT_MIN, -1, 1, 2, INT_MAX})
        EXPECT_FALSE(reader.GetElement(index, type, property, nodes));
    EXPECT_EQ(type, -7);
    EXPECT_TRUE(reader.GetElement(0, type, property, nodes));
    EXPECT_EQ(property, 3);
}

TEST_F(PatranReaderLifecycle, BulkCopies) {
    CPatranReader reader;
    ASSERT_TRUE(reader.ImportFromPatFile(larger.c_str()));
    float vertices[5][3];
    int types[5], nodes[5][8];
    for (int i = 0; i < 5; ++i) {
        vertices[i][0] = -7;
        types[i] = nodes[i][0] = -7;
    }
    for (const int count : {INT_MIN, -1, 0}) {
        reader.GetVertex(vertices, count);
        reader.GetElemType(types, count);
        reader.GetElemNode(nodes, count);
    }
    EXPECT_EQ(vertices[0][0], -7);
    EXPECT_EQ(types[0], -7);
    EXPECT_EQ(nodes[0][0], -7);
    reader.GetVertex(vertices, 1);
    reader.GetElemType(types, 1);
    reader.GetElemNode(nodes, 1);
    EXPECT_EQ(vertices[0][0], 7);
    EXPECT_EQ(vertices[1][0], -7);
    EXPECT_EQ(types[0], 3);
    EXPECT_EQ(types[1], -7);
    EXPECT_THAT(nodes[0], ElementsAre(0, 1, 2, 2, 2, 2, 2, 2));
    EXPECT_EQ(nodes[1][0], -7);
    // All rows that are counted, and nothing of the spare one.
    reader.GetVertex(vertices, 3);
    reader.GetElemType(types, 2);
    reader.GetElemNode(nodes, 2);
    EXPECT_THAT(vertices[2], ElementsAre(9, 0, 0));
    EXPECT_EQ(vertices[3][0], -7);
    EXPECT_EQ(types[1], 3);
    EXPECT_EQ(types[2], -7);
    EXPECT_THAT(nodes[1], ElementsAre(2, 1, 0, 2, 2, 2, 2, 2));
    EXPECT_EQ(nodes[2][0], -7);
}

/// What the bulk copies of a reader write of `kRows` rows, all of them -7 before.
struct Copied {
    static constexpr std::size_t kRows = 6;

    Copied(CPatranReader& reader, int count) {
        reader.GetVertex(vertices, count);
        reader.GetElemType(types, count);
        reader.GetElemNode(nodes, count);
    }

    float vertices[kRows][3] = {{-7, -7, -7}, {-7, -7, -7}, {-7, -7, -7},
                                {-7, -7, -7}, {-7, -7, -7}, {-7, -7, -7}};
    int types[kRows] = {-7, -7, -7, -7, -7, -7};
    int nodes[kRows][8] = {{-7}, {-7}, {-7}, {-7}, {-7}, {-7}};
};

TEST_F(PatranReaderLifecycle, BulkCopiesReachTheSpareRowAndNoFurther) {
    CPatranReader reader;
    ASSERT_TRUE(reader.ImportFromPatFile(larger.c_str()));
    // Three nodes and two elements. The spare row of these is zero although the node of id 0 has
    // index 2.
    for (const int count : {4, 5, 6, INT_MAX}) {
        const Copied copied(reader, count);
        EXPECT_THAT(copied.vertices[2], ElementsAre(9, 0, 0));
        EXPECT_THAT(copied.vertices[3], ElementsAre(0, 0, 0));
        EXPECT_THAT(copied.vertices[4], ElementsAre(-7, -7, -7));
        EXPECT_THAT(copied.types, ElementsAre(3, 3, 0, -7, -7, -7));
        EXPECT_THAT(copied.nodes[1], ElementsAre(2, 1, 0, 2, 2, 2, 2, 2));
        EXPECT_THAT(copied.nodes[2], ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
        EXPECT_EQ(copied.nodes[3][0], -7);
    }
    const Copied elementsAndSpare(reader, 3);
    EXPECT_THAT(elementsAndSpare.vertices[3], ElementsAre(-7, -7, -7));
    EXPECT_THAT(elementsAndSpare.types, ElementsAre(3, 3, 0, -7, -7, -7));
    EXPECT_THAT(elementsAndSpare.nodes[2], ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
}

TEST_F(PatranReaderLifecycle, BulkCopiesOfCountsBelow1HaveASpareRowAlone) {
    for (const int none : {0, -1, -3}) {
        CPatranReader reader;
        const std::string path = folder.write("none.pat", summary(none, none) + endOfFile());
        ASSERT_TRUE(reader.ImportFromPatFile(path.c_str()));
        const Copied copied(reader, 6);
        EXPECT_THAT(copied.vertices[0], ElementsAre(0, 0, 0));
        EXPECT_THAT(copied.vertices[1], ElementsAre(-7, -7, -7));
        EXPECT_THAT(copied.types, ElementsAre(0, -7, -7, -7, -7, -7));
        EXPECT_THAT(copied.nodes[0], ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
        EXPECT_EQ(copied.nodes[1][0], -7);
    }
}

TEST_F(PatranReaderLifecycle, WithoutArraysBulkCopiesWriteNothing) {
    CPatranReader reader;
    const auto expectNothing = [&] {
        const Copied copied(reader, 6);
        EXPECT_EQ(copied.vertices[0][0], -7);
        EXPECT_EQ(copied.types[0], -7);
        EXPECT_EQ(copied.nodes[0][0], -7);
    };
    expectNothing();
    ASSERT_TRUE(reader.ImportFromPatFile(larger.c_str()));
    CapturedOutput output;
    ASSERT_FALSE(reader.ImportFromPatFile(path("missing.pat").c_str()));
    expectNothing();
    ASSERT_TRUE(reader.ImportFromPatFile(larger.c_str()));
    const std::string noSummary = folder.write("no_summary.pat", node(1, 7, 0, 0) + endOfFile());
    ASSERT_TRUE(reader.ImportFromPatFile(noSummary.c_str()));
    expectNothing();
}

/// Gives access to the private operation that finds the highest node id of the file imported last.
template <auto kMember>
struct Opened {
    friend int dimensionOf(CPatranReader& reader) { return (reader.*kMember)(); }
};
int dimensionOf(CPatranReader& reader);
template struct Opened<&CPatranReader::GetNodeDimension>;

TEST_F(PatranReaderLifecycle, TheNodeDimensionIsTheHighestIdThatTheSummaryCounts) {
    CPatranReader reader;
    const std::string file = folder.write(
        "ids.pat", summary(2, 0) + node(7, 1, 0, 0) + node(5, 2, 0, 0) + node(9, 3, 0, 0));
    {
        const CapturedOutput output;
        ASSERT_TRUE(reader.ImportFromPatFile(file.c_str()));
    }
    CapturedOutput output;
    EXPECT_EQ(dimensionOf(reader), 7);
    EXPECT_EQ(output.text(), kMetEnd);
    std::filesystem::remove(file);
    EXPECT_EQ(dimensionOf(reader), 0);
}

#if defined(__linux__)
TEST_F(PatranReaderLifecycle, AnImportOpensOneFileAtATime) {
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const int lowest = open("/dev/null", O_RDONLY);
    ASSERT_GE(lowest, 0);
    close(lowest);
    rlimit one = before;
    one.rlim_cur = static_cast<rlim_t>(lowest) + 1;
    CPatranReader reader;
    const char* const path = larger.c_str();
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &one), 0);
    const bool imported = reader.ImportFromPatFile(path);
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_TRUE(imported);
    EXPECT_THAT(flatElementsOf(reader), ElementsAre(FlatElement{3, 0, {0, 1, 2, 2, 2, 2, 2, 2}},
                                                    FlatElement{3, 9, {2, 1, 0, 2, 2, 2, 2, 2}}));
}
#endif

TEST_F(PatranReaderLifecycle, ASecondImportReplacesTheMesh) {
    CPatranReader reader;
    ASSERT_TRUE(reader.ImportFromPatFile(small.c_str()));
    ASSERT_TRUE(reader.ImportFromPatFile(larger.c_str()));
    EXPECT_EQ(reader.GetPropertyCount(), 0);
    EXPECT_THAT(flatNodesOf(reader), ElementsAre(Point{7, 0, 0}, Point{8, 0, 0}, Point{9, 0, 0}));
    EXPECT_THAT(flatElementsOf(reader), ElementsAre(FlatElement{3, 0, {0, 1, 2, 2, 2, 2, 2, 2}},
                                                    FlatElement{3, 9, {2, 1, 0, 2, 2, 2, 2, 2}}));
    ASSERT_TRUE(reader.ImportFromPatFile(small.c_str()));
    EXPECT_THAT(flatNodesOf(reader), ElementsAre(Point{1, 2, 3}, Point{4, 5, 6}));
    EXPECT_THAT(flatElementsOf(reader), ElementsAre(FlatElement{2, 3, {1, 0, 0, 0, 0, 0, 0, 0}}));
}

TEST_F(PatranReaderLifecycle, ASecondImportWithoutASummaryLeavesNoCounts) {
    CPatranReader reader;
    ASSERT_TRUE(reader.ImportFromPatFile(small.c_str()));
    const std::string second = folder.write("second.pat", node(1, 7, 0, 0) + endOfFile());
    ASSERT_TRUE(reader.ImportFromPatFile(second.c_str()));
    EXPECT_EQ(reader.GetNodeCout(), 0);
    EXPECT_EQ(reader.GetElemCount(), 0);
    EXPECT_EQ(reader.GetPropertyCount(), 0);
    EXPECT_THAT(flatNodesOf(reader), IsEmpty());
    EXPECT_THAT(flatElementsOf(reader), IsEmpty());
}

TEST_F(PatranReaderLifecycle, FilesThatCannotBeOpened) {
    CPatranReader reader;
    ASSERT_TRUE(reader.ImportFromPatFile(small.c_str()));
    CapturedOutput output;
    // Null is refused before anything is touched.
    EXPECT_FALSE(reader.ImportFromPatFile(nullptr));
    EXPECT_EQ(reader.GetNodeCout(), 2);
    EXPECT_EQ(reader.GetElemCount(), 1);
    EXPECT_EQ(reader.GetPropertyCount(), 1);
    EXPECT_FALSE(reader.ImportFromPatFile(path("missing.pat").c_str()));
    EXPECT_EQ(reader.GetNodeCout(), 0);
    EXPECT_EQ(reader.GetElemCount(), 0);
    EXPECT_EQ(reader.GetPropertyCount(), 0);
    EXPECT_FALSE(reader.ImportFromPatFile(""));
    EXPECT_EQ(output.text(), "File Not Found : " + path("missing.pat") + "\nFile Not Found : \n");
    ASSERT_TRUE(reader.ImportFromPatFile(small.c_str()));
    EXPECT_EQ(reader.GetNodeCout(), 2);
}

TEST_F(PatranReaderLifecycle, AFolderCannotBeOpened) {
    CPatranReader reader;
    CapturedOutput output;
    EXPECT_FALSE(reader.ImportFromPatFile(folder.path().string().c_str()));
    EXPECT_EQ(reader.GetNodeCout(), 0);
}

TEST_F(PatranReaderLifecycle, CopiesHandOutTheSameArrays) {
    CPatranReader reader;
    ASSERT_TRUE(reader.ImportFromPatFile(small.c_str()));
    Undying<CPatranReader> copy(reader);
    Undying<CPatranReader> assigned;
    EXPECT_EQ(&(*assigned = reader), &*assigned);
    for (CPatranReader* shared : {&*copy, &*assigned}) {
        EXPECT_EQ(shared->GetPropertyCount(), 1);
        EXPECT_EQ(flatNodesOf(*shared), flatNodesOf(reader));
        EXPECT_EQ(flatElementsOf(*shared), flatElementsOf(reader));
    }
}

TEST_F(PatranReaderLifecycle, ThePathNeedNotOutliveTheImport) {
    CPatranReader reader;
    {
        const std::string gone = small;
        ASSERT_TRUE(reader.ImportFromPatFile(gone.c_str()));
    }
    EXPECT_EQ(reader.GetNodeCout(), 2);
    EXPECT_THAT(flatNodesOf(reader), ElementsAre(Point{1, 2, 3}, Point{4, 5, 6}));
}

}  // namespace
}  // namespace kvocaeio::test
