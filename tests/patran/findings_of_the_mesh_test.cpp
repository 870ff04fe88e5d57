/// What is found of nodes, elements and properties, on the way and over the finished tables.
#include <cstddef>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "patran/found.h"
#include "patran/neutral_file.h"
#include <kvocaeio/patran.h>
#include <kvocaeio/report.h>

namespace kvocaeio::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kTwoNodes = node(1, 0, 0, 0) + node(2, 1, 0, 0);

// Two nodes and a bar of property 1, with the properties.
std::string barWith(const std::string& properties, int count) {
    return summary(2, 1, count) + kTwoNodes + element(1, 2, 1, {1, 2}) + properties + endOfFile();
}

TEST(PatranMeshFindings, NodesOfOneId) {
    EXPECT_THAT(foundIn(summary(4, 1) + kTwoNodes + node(1, 5, 0, 0) + node(2, 6, 0, 0) +
                        element(1, 2, 0, {1, 2}) + endOfFile()),
                ElementsAre("patran.node-repeated 9:10 1", "patran.node-repeated 12:10 2"));
}

// The element claims five cards, so the first pass does not see node 20.
TEST(PatranMeshFindings, NodesThatNoElementFinds) {
    const std::string file = summary(2, 1) + node(10, 0, 0, 0) + header(2, 1, 2, 5) +
                             integers({2, 0, 0}) + integers({10, 20}) + node(20, 1, 0, 0) +
                             endOfFile();
    const Found found(file);
    EXPECT_THAT(found.lists, ElementsAre("patran.card-as-header (element) 9:0  1      20       0"
                                         "       2       0       0       0       0       0",
                                         "patran.node-outside-map 9:9 20",
                                         "patran.node-undefined 0:0 element 1, node 20"));
    EXPECT_THAT(found.arrays, Contains("patran.node-undefined 0:0 element 1"));
    EXPECT_THAT(foundIn(summary(3, 1) + kTwoNodes + node(-5, 3, 0, 0) + element(1, 2, 0, {1, 2}) +
                        endOfFile()),
                ElementsAre("patran.node-outside-map 9:9 -5"));
}

TEST(PatranMeshFindings, TheNodeOfId0) {
    const Found found(summary(3, 2) + node(0, 5, 0, 0) + kTwoNodes + element(1, 2, 0, {1, 2}) +
                      element(2, 2, 0, {0, 1}) + endOfFile());
    EXPECT_THAT(found.lists, IsEmpty());
    ASSERT_EQ(found.arrays.size(), 1U);
    EXPECT_THAT(found.arrays[0], testing::StartsWith("patran.node-id-zero 3:0 "));
}

TEST(PatranMeshFindings, NodesThatAreNotDefined) {
    EXPECT_THAT(foundIn(summary(2, 3) + kTwoNodes + element(4, 2, 0, {1, 2}) +
                        element(5, 5, 0, {1, 2, 1}) + element(6, 2, 0, {1}) + endOfFile()),
                ElementsAre("patran.node-undefined 0:0 element 5, node 0",
                            "patran.node-undefined 0:0 element 6, node 0",
                            "mesh.node-repeated 0:0 element 5"));
}

TEST(PatranMeshFindings, NodesThatAreDropped) {
    std::string nodes;
    for (int id = 1; id <= 10; ++id)
        nodes += node(id, id == 2 || id == 3, id == 3, id >= 4 ? id : 0);
    const Found found(summary(10, 1) + nodes + element(1, 5, 0, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}) +
                      endOfFile());
    EXPECT_THAT(found.lists, ElementsAre("patran.nodes-dropped (4 nodes of a tetrahedron) 35:40 5"
                                         "       6       7       8       9      10"));
    EXPECT_THAT(found.arrays, ElementsAre("patran.nodes-dropped (8 nodes of a tetrahedron) 35:72 9"
                                          "      10"));
}

TEST(PatranMeshFindings, ShapesThatAreNotKnown) {
    const Found found(summary(2, 2) + kTwoNodes + element(1, 6, 0, {1, 2}) +
                      element(2, 11, 0, {1, 2}) + endOfFile());
    EXPECT_THAT(found.lists, IsEmpty());
    EXPECT_THAT(found.arrays, ElementsAre("patran.shape-unknown (6) 9:18 6",
                                          "patran.shape-unknown (11) 12:17 11"));
}

TEST(PatranMeshFindings, OfTheMeshAsSuch) {
    const std::string file =
        summary(5, 2) + kTwoNodes + node(3, 0, 1, 0) + node(4, 0, 0, 1) + header(1, 5, 0, 2) +
        "             inf             0.0             0.0\n"
        "-\n" +
        element(7, 5, 0, {1, 3, 2, 4}) + element(8, 2, 0, {2, 2}) + endOfFile();
    EXPECT_THAT(
        foundIn(file),
        ElementsAre("mesh.volume-not-positive 0:0 element 7", "mesh.node-repeated 0:0 element 8",
                    "mesh.node-unused 0:0 node 5", "mesh.coordinate-not-finite 0:0 node 5"));
}

TEST(PatranMeshFindings, PropertiesOfTheBridge) {
    const auto found = [](const std::string& properties, int count) {
        const Found both(barWith(properties, count));
        EXPECT_THAT(both.arrays, IsEmpty());
        return both.lists;
    };
    EXPECT_THAT(found(property(1, 2, {2, 1}), 1), IsEmpty());
    EXPECT_THAT(found(property(7, 2, {2, 1}) + property(3, 3, {1, 1}), 2),
                ElementsAre("patran.property-missing 0:0 element 1, property 1"));
    EXPECT_THAT(found(property(1, 5, {0, 0, 0, 0, 0}), 1),
                ElementsAre("patran.property-without-type (5) 12:0  4       1       0       1"
                            "       5       0       0       0       0"));
    EXPECT_THAT(found(property(1, 2, {2, 1}) + property(1, 3, {2, 1}), 2),
                ElementsAre("patran.property-repeated 14:10 1"));
    EXPECT_THAT(found(property(1, 2, {2, 1}) + property(-1, 3, {2, 1}), 2),
                ElementsAre("patran.property-id-outside 14:9 -1"));
    EXPECT_THAT(found(" 4       1               1       2       3       0\n" + reals({2, 1}), 1),
                ElementsAre("patran.property-header-differs 12:0  4       1               1"
                            "       2       3       0"));
    EXPECT_THAT(found(property(1, 2, {2}), 1),
                ElementsAre("patran.value-unreadable (second) 13:16 2"));
    EXPECT_THAT(found(header(4, 1, 0, 1, 2) + "x 1\n", 1),
                ElementsAre("patran.value-unreadable (first) 13:1 x 1"));
}

TEST(PatranMeshFindings, ASecondImportByOneReader) {
    const TempFolder folder;
    const std::string path =
        folder.write("a.pat", summary(2, 1) + kTwoNodes + element(1, 2, 0, {1, 2}) + endOfFile());
    CKVOImportReport report;
    CKVO_PatranIO_Bridge lists;
    CPatranReader arrays;
    for (int import = 0; import < 2; ++import) {
        ASSERT_TRUE(lists.ImportFromPatFile(path.c_str(), &report));
        EXPECT_EQ(report.GetCodeCount("patran.import-appended"), import);
        EXPECT_EQ(report.GetFindingNum(), import);
        ASSERT_TRUE(arrays.ImportFromPatFile(path.c_str(), &report));
        EXPECT_EQ(report.GetFindingNum(), 0);
    }
}

// A report counts what the readers hand out.
TEST(PatranMeshFindings, CountsOfWhatWasRead) {
    const TempFolder folder;
    const std::string path = folder.write("a.pat", barWith(property(1, 2, {2, 1}), 1));
    CKVOImportReport report;
    CKVOImportReport::CountData count;
    const auto counts = [&] {
        std::vector<std::string> all;
        for (report.GetCountBegin(); report.GetCountNext(&count);)
            all.push_back(std::string(count.name) + " " + std::to_string(count.count));
        return all;
    };
    CKVO_PatranIO_Bridge lists;
    ASSERT_TRUE(lists.ImportFromPatFile(path.c_str(), &report));
    EXPECT_THAT(counts(), ElementsAre("nodes 2", "elements 1"));
    CPatranReader arrays;
    ASSERT_TRUE(arrays.ImportFromPatFile(path.c_str(), &report));
    EXPECT_THAT(counts(), ElementsAre("nodes 2", "elements 1", "properties 1"));
}

}  // namespace
}  // namespace kvocaeio::test
