/// The bridge before, between and after imports.
#include <climits>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "patran/neutral_file.h"
#include "patran/reader_lifecycle.h"
#include "support/captured_output.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;

const ElementData kNoElement = {{0, 0, 0, 0}, 13, 0, 0, 0};

using PatranBridgeLifecycle = PatranLifecycle;

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

}  // namespace
}  // namespace kvocaeio::test
