/// Memory that cannot be had, at every single allocation of a reader and a writer.
#include <array>
#include <gtest/gtest.h>
#include <string>

#include "nastran/written_deck.h"
#include "support/failing_memory.h"
#include <kvocaeio/report.h>

namespace kvocaeio::test {
namespace {

const std::string kSmallDeck =
    "GRID           3       0     1.5     2.5     3.5\n"
    "CBAR,2,1,1,2\n"
    "CHEXA          4       1       1       2       3       4       5       6\n,7,8\n"
    "PSOLID         1       1       1\nPSOLID         2       1       1\n"
    "PSOLID         3       1       1\n";

class MemoryFailure : public testing::Test {
  protected:
    bool readWith(KVONASTRAN_Reader& reader, long allocations) const {
        return withAllocations(allocations, [&] { return reader.SetFilePath(path.c_str()); });
    }

    TempFolder folder;
    std::string path = folder.write("deck.nas", kSmallDeck);
};

void expectDeck(KVONASTRAN_Reader& reader) {
    ASSERT_EQ(reader.GetNodeCout(), 3);
    ASSERT_EQ(reader.GetElemCout(), 4);
    ASSERT_EQ(reader.GetSectionCout(), 3);
    EXPECT_EQ(reader.GetNodeVector()[9], 1.5F);
    EXPECT_EQ(reader.GetElemVector()[9], 2);
    EXPECT_EQ(reader.GetElemVector()[27], 4);
    EXPECT_EQ(reader.GetSectionVector()[6], 3);
    EXPECT_EQ(reader.GetPropertiesCout(), 1);
}

TEST_F(MemoryFailure, OfAReaderGivesFalseAndLeaksNothing) {
    {
        KVONASTRAN_Reader first;
        readWith(first, -1);
    }
    int failures = 0;
    for (bool read = false; !read; ++failures) {
        const long before = outstanding;
        {
            KVONASTRAN_Reader reader;
            read = readWith(reader, failures);
            if (read)
                expectDeck(reader);
            else {
                EXPECT_EQ(reader.GetNodeCout(), 0);
                EXPECT_EQ(reader.GetSectionCout(), 0);
                EXPECT_EQ(reader.GetPropertiesCout(), 0);
                EXPECT_EQ(reader.GetNodeVector(), nullptr);
                EXPECT_EQ(reader.GetElemVector(), nullptr);
                EXPECT_EQ(reader.GetSectionVector(), nullptr);
            }
        }
        ASSERT_EQ(outstanding, before) << "after " << failures << " allocations";
    }
    EXPECT_GT(failures, 6);
}

// What the report cannot have is no reason for the tables to be others.
TEST_F(MemoryFailure, OfAReportLeavesTheTables) {
    CKVOImportReport report;
    bool isWhole = false;
    for (int allocations = 0; !isWhole; ++allocations) {
        const long before = outstanding;
        {
            KVONASTRAN_Reader reader;
            report.Clear();
            const bool read = withAllocations(
                allocations, [&] { return reader.SetFilePath(path.c_str(), &report); });
            if (read)
                expectDeck(reader);
            else
                EXPECT_EQ(reader.GetNodeCout(), 0);
            isWhole = read && report.GetCodeCount("nastran.rows-empty") == 2;
            report.Clear();
        }
        ASSERT_EQ(outstanding, before) << "after " << allocations << " allocations";
        ASSERT_LT(allocations, 1000);
    }
}

TEST_F(MemoryFailure, OfASecondReadingLeavesTheFirst) {
    bool read = false;
    for (int allocations = 0; !read; ++allocations) {
        KVONASTRAN_Reader reader;
        ASSERT_TRUE(readWith(reader, -1));
        const float* const nodes = reader.GetNodeVector();
        read = readWith(reader, allocations);
        EXPECT_EQ(nodes[9], 1.5F) << allocations;
        EXPECT_EQ(reader.GetSectionCout(), 3) << allocations;
        EXPECT_EQ(reader.GetPropertiesCout(), 1) << allocations;
        if (read)
            expectDeck(reader);
    }
}

TEST_F(MemoryFailure, OfAWriterGivesFalseAndLeaksNothing) {
    std::array<int, 8> nodes{1, 2, 3, 4, 5, 6, 7, 8};
    const std::string unit(100, 'm');
    const std::string deckPath = folder.file("out.nas");
    const auto write = [&](KVONASTRAN_Writer& writer) {
        if (!writer.SetFilePath(deckPath.c_str(), unit.c_str()))
            return false;
        writer.AddNode(1, 1e300, 0, 0);
        writer.AddSection(1, 1);
        writer.AddElement(1, 1, 8, nodes.data());
        return writer.EndWriting();
    };
    {
        KVONASTRAN_Writer first;
        write(first);
    }
    int failures = 0;
    for (bool written = false; !written; ++failures) {
        const long before = outstanding;
        {
            KVONASTRAN_Writer writer;
            written = withAllocations(failures, [&] { return write(writer); });
        }
        ASSERT_EQ(outstanding, before) << "after " << failures << " allocations";
        ASSERT_LT(failures, 1000);
    }
    const std::string content = readText(deckPath);
    EXPECT_NE(content.find("CHEXA  ,      1,      1,      1"), std::string::npos);
    EXPECT_TRUE(content.ends_with(kFooter));
}

}  // namespace
}  // namespace kvocaeio::test
