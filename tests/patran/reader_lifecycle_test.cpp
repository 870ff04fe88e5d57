/// Both readers before, between and after imports.
#include <array>
#include <climits>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <new>
#include <string>

#include "patran/neutral_file.h"
#include "support/captured_output.h"
#include "support/files.h"

#if defined(__linux__)
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Corners = std::array<int, 4>;

const ElementData kNoElement = {{0, 0, 0, 0}, 13, 0, 0, 0};

/// A copy that never dies, as both would release what they share.
template <class Type>
class Undying {
  public:
    explicit Undying(const Type& other) : object_(new (memory_) Type(other)) {}
    Undying() : object_(new (memory_) Type) {}
    Type& operator*() { return *object_; }

  private:
    alignas(Type) unsigned char memory_[sizeof(Type)];
    Type* object_;
};

class PatranLifecycle : public testing::Test {
  protected:
    std::string path(const std::string& name) { return folder.file(name); }

    TempFolder folder;
    /// Two nodes of the ids 1 and 2 and a bar from the second to the first.
    std::string small =
        folder.write("small.pat", summary(2, 1, 1) + property(3, 2, {2, 0.5}) + node(1, 1, 2, 3) +
                                      node(2, 4, 5, 6) + element(1, 2, 3, {2, 1}) + endOfFile());
    /// Three nodes of the ids 0 ... 2 backwards and two triangles.
    std::string larger = folder.write(
        "larger.pat", summary(3, 2) + node(2, 7, 0, 0) + node(1, 8, 0, 0) + node(0, 9, 0, 0) +
                          element(1, 3, 0, {2, 1, 0}) + element(2, 3, 9, {0, 1, 2}) + endOfFile());
};

using PatranBridgeLifecycle = PatranLifecycle;
using PatranReaderLifecycle = PatranLifecycle;

TEST_F(PatranBridgeLifecycle, BeforeAnImport) {
    CKVO_PatranIO_Bridge reader;
    EXPECT_EQ(reader.GetNodeCount(), 0);
    EXPECT_EQ(reader.GetElementCount(), 0);
    for (const int index : {INT_MIN, -1, 0, 1, INT_MAX}) {
        EXPECT_EQ(nodeOf(reader, index), (Point{0, 0, 0}));
        EXPECT_EQ(elementOf(reader, index), kNoElement);
    }
}

TEST_F(PatranBridgeLifecycle, IndexesOutside) {
    CKVO_PatranIO_Bridge reader;
    ASSERT_TRUE(reader.ImportFromPatFile(small.c_str()));
    EXPECT_EQ(nodeOf(reader, 1), (Point{4, 5, 6}));
    EXPECT_EQ(elementOf(reader, 0), (ElementData{{1, 0, 0, 0}, 10, 0, 0.5, 0.5}));
    for (const int index : {INT_MIN, -1, 2, INT_MAX})
        EXPECT_EQ(nodeOf(reader, index), (Point{0, 0, 0}));
    for (const int index : {INT_MIN, -1, 1, INT_MAX})
        EXPECT_EQ(elementOf(reader, index), kNoElement);
}

TEST_F(PatranBridgeLifecycle, FilesThatCannotBeOpened) {
    CKVO_PatranIO_Bridge reader;
    CapturedOutput output;
    EXPECT_FALSE(reader.ImportFromPatFile(path("missing.pat").c_str()));
    EXPECT_FALSE(reader.ImportFromPatFile(""));
    EXPECT_FALSE(reader.ImportFromPatFile(nullptr));
    EXPECT_FALSE(reader._wImportFromPatFile(L"missing.pat"));
    EXPECT_FALSE(reader._wImportFromPatFile(nullptr));
    EXPECT_EQ(reader.GetNodeCount(), 0);
    ASSERT_TRUE(reader.ImportFromPatFile(small.c_str()));
    EXPECT_FALSE(reader.ImportFromPatFile(path("missing.pat").c_str()));
    EXPECT_EQ(reader.GetNodeCount(), 2);
    EXPECT_EQ(reader.GetElementCount(), 1);
    EXPECT_EQ(output.text(), "");
}

TEST_F(PatranBridgeLifecycle, AFolderCannotBeOpened) {
    CKVO_PatranIO_Bridge reader;
    EXPECT_FALSE(reader.ImportFromPatFile(folder.path().string().c_str()));
    EXPECT_EQ(reader.GetNodeCount(), 0);
}

TEST_F(PatranBridgeLifecycle, ByAWidePath) {
    const std::string narrow = folder.path().string();
    const std::wstring wide =
        std::wstring(narrow.begin(), narrow.end()) + L"/netz_\u00e4\u4e2d.pat";
    std::filesystem::rename(small, folder.path() / std::filesystem::path(u"netz_\u00e4\u4e2d.pat"));
    CKVO_PatranIO_Bridge reader;
    ASSERT_TRUE(reader._wImportFromPatFile(wide.c_str()));
    EXPECT_THAT(nodesOf(reader), ElementsAre(Point{1, 2, 3}, Point{4, 5, 6}));
    EXPECT_THAT(elementsOf(reader), ElementsAre(ElementData{{1, 0, 0, 0}, 10, 0, 0.5, 0.5}));
}

TEST_F(PatranBridgeLifecycle, ASecondImportAppends) {
    CKVO_PatranIO_Bridge reader;
    ASSERT_TRUE(reader.ImportFromPatFile(small.c_str()));
    ASSERT_TRUE(reader.ImportFromPatFile(larger.c_str()));
    EXPECT_THAT(nodesOf(reader), ElementsAre(Point{1, 2, 3}, Point{4, 5, 6}, Point{7, 0, 0},
                                             Point{8, 0, 0}, Point{9, 0, 0}));
    // The corners 1, 0 of the first bar are taken for ids of the second file: 1 is its second node,
    // 0 its third. The summary now counts two elements without properties.
    EXPECT_EQ(reader.GetElementCount(), 3);
    EXPECT_EQ(elementOf(reader, 0), (ElementData{{1, 2, 2, 2}, 2, 0, 0, 0}));
    EXPECT_EQ(elementOf(reader, 1), (ElementData{{0, 1, 2, 2}, 3, 0, 0, 0}));
    EXPECT_EQ(elementOf(reader, 2), kNoElement);
}

TEST_F(PatranBridgeLifecycle, ASecondImportKeepsPropertiesAndCounts) {
    CKVO_PatranIO_Bridge reader;
    ASSERT_TRUE(reader.ImportFromPatFile(small.c_str()));
    // Without a summary of its own: two nodes, one element and one property may follow.
    const std::string second = folder.write(
        "second.pat", node(1, 7, 0, 0) + node(4, 8, 0, 0) + node(5, 9, 0, 0) +
                          element(1, 2, 3, {4, 1}) + element(1, 2, 3, {1, 4}) +
                          property(1, 2, {12, 2}) + property(3, 3, {1, 4}) + endOfFile());
    ASSERT_TRUE(reader.ImportFromPatFile(second.c_str()));
    EXPECT_THAT(nodesOf(reader),
                ElementsAre(Point{1, 2, 3}, Point{4, 5, 6}, Point{7, 0, 0}, Point{8, 0, 0}));
    EXPECT_EQ(reader.GetElementCount(), 2);
    // 1 is the first node of the second file, 0 none of it. The count ends behind one element.
    EXPECT_EQ(elementOf(reader, 0), (ElementData{{0, 0, 0, 0}, 10, 0, 0.5, 0.5}));
    EXPECT_EQ(elementOf(reader, 1), kNoElement);
}

TEST_F(PatranBridgeLifecycle, CopiesShareTheMesh) {
    CKVO_PatranIO_Bridge reader;
    Undying<CKVO_PatranIO_Bridge> copy(reader);
    ASSERT_TRUE((*copy).ImportFromPatFile(small.c_str()));
    EXPECT_EQ(reader.GetNodeCount(), 2);
    EXPECT_EQ(elementOf(reader, 0), elementOf(*copy, 0));
    ASSERT_TRUE(reader.ImportFromPatFile(larger.c_str()));
    EXPECT_EQ((*copy).GetNodeCount(), 5);
}

TEST_F(PatranBridgeLifecycle, AssignmentSharesTheMesh) {
    CKVO_PatranIO_Bridge reader;
    ASSERT_TRUE(reader.ImportFromPatFile(small.c_str()));
    CKVO_PatranIO_Bridge other;
    Undying<CKVO_PatranIO_Bridge> copy(other);
    EXPECT_EQ(&(*copy = reader), &*copy);
    EXPECT_EQ((*copy).GetNodeCount(), 2);
    ASSERT_TRUE((*copy).ImportFromPatFile(larger.c_str()));
    EXPECT_EQ(reader.GetNodeCount(), 5);
    EXPECT_EQ(other.GetNodeCount(), 0);
}

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
