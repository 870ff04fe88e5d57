/// Memory that cannot be had, at every single allocation of the Patran readers and the writer.
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>

#include "patran/neutral_file.h"
#include "support/failing_memory.h"
#include "support/files.h"

namespace kvocaeio::test {
namespace {

class PatranMemoryFailure : public testing::Test {
  protected:
    /// Runs `round` with one allocation more each time until it says that it had all it wanted.
    /// Nothing may be left behind by any. Gives the number of rounds.
    int untilItHasAll(const std::function<bool(long)>& round) {
        int rounds = 0;
        for (bool hadAll = false; !hadAll; ++rounds) {
            const long before = outstanding;
            hadAll = round(rounds);
            EXPECT_EQ(outstanding, before) << "after " << rounds << " allocations";
        }
        return rounds;
    }

    TempFolder folder;
    std::string path = folder.write(
        "mesh.pat", summary(9, 6, 3) + property(1, 2, {2, 1}) + property(900, 3, {2, 1}) +
                        property(70000, 2, {3, 1}) + node(1, 1, 2, 3) + node(2, 4, 5, 6) +
                        node(90000, 7, 8, 9) + node(4, 1, 2, 3) + node(5, 4, 5, 6) +
                        element(1, 4, 900, {1, 2, 90000, 4}) + element(2, 2, 1, {5, 1}) +
                        element(3, 2, 1, {2, 1}) + summary(9, 8, 3) + node(6, 0, 0, 0) +
                        element(4, 2, 1, {2, 1}) + element(5, 2, 1, {2, 1}) + endOfFile());
    std::string small = folder.write(
        "small.pat", summary(1, 1) + node(1, 1, 2, 3) + element(1, 2, 0, {1, 1}) + endOfFile());
};

TEST_F(PatranMemoryFailure, OfABridgesImportGivesFalseAndNoMesh) {
    const int rounds = untilItHasAll([&](long allocations) {
        CKVO_PatranIO_Bridge reader;
        bool imported = false;
        withAllocations(allocations, [&] { imported = reader.ImportFromPatFile(path.c_str()); });
        EXPECT_EQ(reader.GetNodeCount(), imported ? 6 : 0);
        EXPECT_EQ(reader.GetElementCount(), imported ? 5 : 0);
        return imported;
    });
    EXPECT_GT(rounds, 8);
}

TEST_F(PatranMemoryFailure, OfABridgeLeavesOneWithoutAReader) {
    const int rounds = untilItHasAll([&](long allocations) {
        bool imported = false;
        int nodes = -1, elements = -1;
        Point point{};
        ElementData element{};
        withAllocations(allocations, [&] {
            CKVO_PatranIO_Bridge reader;
            imported = reader.ImportFromPatFile(small.c_str());
            imported = reader._wImportFromPatFile(L"missing.pat") || imported;
            nodes = reader.GetNodeCount();
            elements = reader.GetElementCount();
            point = nodeOf(reader, 0);
            element = elementOf(reader, 0);
        });
        EXPECT_EQ(nodes, imported ? 1 : 0);
        EXPECT_EQ(elements, imported ? 1 : 0);
        EXPECT_EQ(point, (imported ? Point{1, 2, 3} : Point{0, 0, 0}));
        EXPECT_EQ(element.type, imported ? 2 : 13);
        return imported;
    });
    EXPECT_GT(rounds, 4);
}

TEST_F(PatranMemoryFailure, OfABridgesSecondImport) {
    untilItHasAll([&](long allocations) {
        CKVO_PatranIO_Bridge reader;
        EXPECT_TRUE(reader.ImportFromPatFile(small.c_str()));
        bool imported = false;
        withAllocations(allocations, [&] { imported = reader.ImportFromPatFile(path.c_str()); });
        EXPECT_EQ(reader.GetNodeCount(), imported ? 7 : 0);
        EXPECT_EQ(reader.GetElementCount(), imported ? 6 : 0);
        // It can be used again.
        EXPECT_TRUE(reader.ImportFromPatFile(small.c_str()));
        EXPECT_EQ(reader.GetNodeCount(), imported ? 8 : 1);
        return imported;
    });
}

TEST_F(PatranMemoryFailure, OfTheFlatReadersImportGivesFalseAndCountsOf0) {
    for (const bool second : {false, true}) {
        const int rounds = untilItHasAll([&](long allocations) {
            CPatranReader reader;
            EXPECT_TRUE(!second || reader.ImportFromPatFile(small.c_str()));
            bool imported = false;
            withAllocations(allocations,
                            [&] { imported = reader.ImportFromPatFile(path.c_str()); });
            EXPECT_EQ(reader.GetNodeCout(), imported ? 9 : 0);
            EXPECT_EQ(reader.GetElemCount(), imported ? 8 : 0);
            EXPECT_EQ(reader.GetPropertyCount(), imported ? 3 : 0);
            EXPECT_EQ(flatNodesOf(reader).size(), imported ? 9U : 0U);
            EXPECT_EQ(flatElementsOf(reader).size(), imported ? 8U : 0U);
            int type = -7;  // of the first row, where there are arrays
            reader.GetElemType(&type, 1);
            EXPECT_EQ(type, imported ? 0 : -7);
            EXPECT_TRUE(reader.ImportFromPatFile(small.c_str()));
            EXPECT_EQ(reader.GetNodeCout(), 1);
            return imported;
        });
        EXPECT_GT(rounds, kMallocFails ? 8 : 2);
    }
}

TEST_F(PatranMemoryFailure, OfTheWriter) {
    const std::string out = folder.file("out.pat");
    const int rounds = untilItHasAll([&](long allocations) {
        std::filesystem::remove(out);
        bool elements = false, written = false, hadAll = false;
        int nodes[8] = {1, 1, 1, 1, 1, 1, 1, 1};
        withAllocations(allocations, [&] {
            CKVO_PATWriter_Bridge writer;
            writer.SetFilePath(out.c_str());
            writer.SetNodeCount(300);
            writer.SetNodeArray();
            writer.AddNode(299, 1, 2, 3);
            writer.SetElemCount(300);
            elements = writer.SetElemArray();
            writer.AddElement(299, 8, nodes);
            written = writer.WriteFile();
            hadAll = granted != 0;
        });
        EXPECT_TRUE(elements || !written);
        EXPECT_TRUE(!written || std::filesystem::exists(out));
        return hadAll;
    });
    EXPECT_GT(rounds, kMallocFails ? 4 : 3);
    EXPECT_EQ(FlatMesh(readBytes(out)).elemCount, 300);
}

TEST_F(PatranMemoryFailure, OfNewArraysLeavesTheWriterWithoutAny) {
    const std::string out = folder.file("out.pat");
    const int rounds = untilItHasAll([&](long allocations) {
        CKVO_PATWriter_Bridge writer;
        writer.SetFilePath(out.c_str());
        writer.SetNodeCount(3);
        writer.SetNodeArray();
        writer.SetElemCount(2);
        EXPECT_TRUE(writer.SetElemArray());
        EXPECT_TRUE(writer.WriteFile());
        bool elements = false, hadAll = false;
        withAllocations(allocations, [&] {
            writer.SetNodeArray();
            elements = writer.SetElemArray();
            hadAll = granted != 0;
        });
        writer.AddNode(2, 1, 2, 3);
        int nodes[4] = {1, 2, 3, 1};
        writer.AddElement(1, 4, nodes);
        EXPECT_EQ(writer.WriteFile(), elements);
        // With memory it goes on.
        writer.SetNodeArray();
        EXPECT_TRUE(writer.SetElemArray());
        EXPECT_TRUE(writer.WriteFile());
        return hadAll;
    });
    EXPECT_GT(rounds, kMallocFails ? 2 : 1);
}

}  // namespace
}  // namespace kvocaeio::test
