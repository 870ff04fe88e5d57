/// Meshes that are written, against what the classes write, and meshes that are refused.
#include <array>
#include <cstdint>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include "c/opened.h"
#include "support/files.h"
#include <kvocaeio/nastran.h>
#include <kvocaeio/patran.h>

namespace kvocaeio::test {
namespace {

// A hexahedron and a wedge on it, in a mesh that a test may spoil.
class WriteTest : public testing::Test {
  protected:
    WriteTest() {
        for (std::size_t i = 0; i < blocks.size(); ++i) {
            blocks[i].nodes_per_element = i == 0 ? 8 : 6;
            blocks[i].count = 1;
            blocks[i].oids = &elementOids[i];
            blocks[i].nodes = nodes.data() + 8 * i;
            blocks[i].property = i == 0 ? 4 : 0;
        }
        mesh.struct_size = sizeof mesh;
        mesh.node_count = nodeOids.size();
        mesh.node_oids = nodeOids.data();
        mesh.coordinates = coordinates.data();
        mesh.block_count = blocks.size();
        mesh.block_size = sizeof blocks[0];
        mesh.blocks = blocks.data();
        mesh.unit = "cm";
    }

    // What the mesh is refused for; a file that is there stays.
    std::string refusal(std::int32_t format = KVOCAEIO_FORMAT_PATRAN) {
        const std::string path = folder.write("file", "old");
        EXPECT_EQ(kvocaeio_write(path.c_str(), format, &mesh), KVOCAEIO_BAD_ARGUMENT);
        EXPECT_EQ(readBytes(path), "old");
        return kvocaeio_error_text();
    }

    TempFolder folder;
    std::array<std::int32_t, 10> nodeOids{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    std::array<double, 30> coordinates{0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0, 0, 0, 1,
                                       1, 0, 1, 1, 1, 1, 0, 1, 1, 0, 0, 2, 1, 0, 2.125};
    std::array<std::int32_t, 2> elementOids{1, 2};
    std::array<std::int32_t, 14> nodes{1, 2, 3, 4, 5, 6, 7, 8, 5, 8, 9, 6, 7, 10};
    std::array<kvocaeio_block, 2> blocks{};
    kvocaeio_mesh mesh{};
};

// Without the date, which two files may have of different seconds.
std::string undated(const std::string& path) {
    std::string text = readBytes(path);
    const std::size_t date = text.find("$ Date");
    return date == std::string::npos ? text : text.erase(date, text.find('\n', date) - date);
}

TEST_F(WriteTest, WritesTheNastranDeckThatTheClassWrites) {
    KVONASTRAN_Writer writer;
    ASSERT_TRUE(writer.SetFilePath(folder.file("class.nas").c_str(), "cm"));
    for (std::size_t i = 0; i < nodeOids.size(); ++i)
        writer.AddNode(nodeOids[i], coordinates[3 * i], coordinates[3 * i + 1],
                       coordinates[3 * i + 2]);
    writer.AddSection(1, 0);
    writer.AddSection(4, 0);
    writer.AddElement(1, 4, 8, nodes.data());
    writer.AddElement(2, 1, 6, nodes.data() + 8);
    writer.EndWriting();
    ASSERT_EQ(kvocaeio_write(folder.file("c.nas").c_str(), KVOCAEIO_FORMAT_NASTRAN, &mesh),
              KVOCAEIO_OK);
    EXPECT_EQ(undated(folder.file("c.nas")), undated(folder.file("class.nas")));
    EXPECT_NE(readBytes(folder.file("c.nas")).find("$ Mesh unit           = cm"),
              std::string::npos);
}

TEST_F(WriteTest, WritesThePatranFileThatTheClassWrites) {
    CKVO_PATWriter_Bridge writer;
    const std::string path = folder.file("class.pat");
    writer.SetFilePath(path.c_str());
    writer.SetNodeCount(10);
    writer.SetNodeArray();
    for (int i = 0; i < 10; ++i) {
        const double* const point = &coordinates[3 * static_cast<std::size_t>(i)];
        writer.AddNode(i, point[0], point[1], point[2]);
    }
    writer.SetElemCount(2);
    ASSERT_TRUE(writer.SetElemArray());
    writer.AddElement(0, 8, nodes.data());
    writer.AddElement(1, 6, nodes.data() + 8);
    ASSERT_TRUE(writer.WriteFile());
    ASSERT_EQ(kvocaeio_write(folder.file("c.pat").c_str(), KVOCAEIO_FORMAT_PATRAN, &mesh),
              KVOCAEIO_OK);
    EXPECT_EQ(readBytes(folder.file("c.pat")), readBytes(path));
}

TEST_F(WriteTest, NumbersFromOneWhatHasNoOids) {
    ASSERT_EQ(kvocaeio_write(folder.file("oids").c_str(), KVOCAEIO_FORMAT_PATRAN, &mesh),
              KVOCAEIO_OK);
    mesh.node_oids = nullptr;
    mesh.numbering = KVOCAEIO_ROWS;
    for (std::int32_t& node : nodes)
        --node;
    for (kvocaeio_block& block : blocks)
        block.oids = nullptr;
    ASSERT_EQ(kvocaeio_write(folder.file("rows").c_str(), KVOCAEIO_FORMAT_PATRAN, &mesh),
              KVOCAEIO_OK);
    EXPECT_EQ(readBytes(folder.file("rows")), readBytes(folder.file("oids")));
}

TEST_F(WriteTest, RefusesNodesThatCannotBeWritten) {
    coordinates[4] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(refusal(), "a coordinate of node 2 is no finite number");
    coordinates[4] = 0;
    nodeOids[9] = 3;
    EXPECT_EQ(refusal(), "node OID 3 stands twice");
    nodeOids[9] = 100'000'000;
    EXPECT_EQ(refusal(), "node OID 100000000 is not between 1 and 99999999");
    nodeOids[9] = 99;
    EXPECT_EQ(refusal(), "an element has node 10, which is not among the nodes");
    mesh.numbering = KVOCAEIO_ROWS;
    EXPECT_EQ(refusal(), "an element has row 10, which is not among the nodes");
    mesh.node_count = 0;
    EXPECT_EQ(refusal(), "the mesh has no nodes");
}

TEST_F(WriteTest, RefusesElementsThatCannotBeWritten) {
    elementOids[1] = 1;
    EXPECT_EQ(refusal(), "element OID 1 stands twice");
    elementOids[1] = -5;
    EXPECT_EQ(refusal(), "element OID -5 is not between 1 and 99999999");
    elementOids[1] = 2;
    blocks[1].oids = nullptr;
    EXPECT_EQ(refusal(), "some blocks have OIDs of elements, others have none");
    blocks[1].oids = &elementOids[1];
    blocks[1].nodes_per_element = 5;
    EXPECT_EQ(refusal(), "the elements of a block have neither 4 nor 6 nor 8 nodes");
    blocks[1].nodes_per_element = 6;
    blocks[1].property = -1;
    EXPECT_EQ(refusal(), "a property OID is not between 1 and 99999999");
    blocks[0].count = std::numeric_limits<std::size_t>::max() / 2;
    EXPECT_EQ(refusal(), "the mesh has more than 99999999 elements");
    mesh.block_size = 0;
    EXPECT_EQ(refusal(), "the block_size of the mesh is not set");
    mesh.block_count = 0;
    EXPECT_EQ(refusal(), "the mesh has no blocks of elements");
    EXPECT_EQ(refusal(KVOCAEIO_FORMAT_ABAQUS), "files of this format are not written");
}

TEST_F(WriteTest, LeavesNothingBehindWhereTheDiskRefusesTheFile) {
    folder.makeFolder("taken");
    EXPECT_EQ(kvocaeio_write(folder.file("taken").c_str(), KVOCAEIO_FORMAT_PATRAN, &mesh),
              KVOCAEIO_CANNOT_WRITE);
    EXPECT_EQ(kvocaeio_write(folder.file("missing/file").c_str(), KVOCAEIO_FORMAT_PATRAN, &mesh),
              KVOCAEIO_CANNOT_WRITE);
    EXPECT_EQ(kvocaeio_error_file(), folder.file("missing/file"));
    namespace fs = std::filesystem;
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
}

}  // namespace
}  // namespace kvocaeio::test
