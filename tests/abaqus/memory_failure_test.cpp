/// Memory that cannot be had, at every single allocation of an import.
#include <gtest/gtest.h>
#include <string>
#include <utility>

#include "support/captured_output.h"
#include "support/failing_memory.h"
#include "support/files.h"
#include <kvocaeio/abaqus.h>

namespace kvocaeio::test {
namespace {

constexpr const char* kSmallDeck =
    "*NODE\n1,0,0,0\n2,1,0,0\n3,0,1,0\n4,0,0,1\n2000000000,1,1,1\n"
    "*ELEMENT,TYPE=C3D4,ELSET=A_NAME_THAT_IS_LONG_ENOUGH\n1,1,2,3,4\n"
    "*ELEMENT,TYPE=S3\n2,1,2,3\n3,2,3,4\n"
    "*ELSET,ELSET=B\n1,2,A_MEMBER_THAT_IS_LONG_ENOUGH\n*ELSET,ELSET=C,GENERATE\n1,3,1\n"
    "*SURFACE,TYPE=ELEMENT,NAME=TOP\nB,S1\n*SHELL SECTION,ELSET=B,MATERIAL=M\n1.\n"
    "*DLOAD\n1,P1,2.\n";

constexpr const char* kLargerDeck =
    "*NODE\n1,0,0,0\n2,1,0,0\n3,0,1,0\n4,0,0,1\n5,0,0,1\n6,0,0,1\n7,0,0,1\n8,0,0,1\n"
    "*ELEMENT,TYPE=C3D8\n1,1,2,3,4,5,6,7,8\n2,1,2,3,4,5,6,7,8\n"
    "*ELEMENT,TYPE=S4\n3,1,2,3,4\n4,1,2,3,4\n5,1,2,3,4\n*ELEMENT,TYPE=B31\n7\n8\n";

// Walks everything, so that a table that is out of step shows under the sanitizers.
long walk(CKVOAbaqusReader& reader) {
    long sum = 0;
    CKVOAbaqusReader::NodeData node{};
    for (reader.GetNodeBegin(); reader.GetNodeNext(&node);)
        sum += node.id + static_cast<long>(node.coord[0] + node.coord[1] + node.coord[2]);
    CKVOAbaqusReader::ElemSecData section{};
    for (reader.GetElemSecBegin(); reader.GetElemSecNext(&section);) {
        int id = 0;
        int* nodes = nullptr;
        while (reader.GetElemSecElemNext(&section, &id, &nodes))
            for (int k = 0; k < section.nodesPerElem; ++k)
                sum += nodes[k];
    }
    CKVOAbaqusReader::ShellSecData shell{};
    for (reader.GetShellSecBegin(); reader.GetShellSecNext(&shell);)
        sum += static_cast<long>(shell.thickness);
    return sum;
}

bool importWith(CKVOAbaqusReader& reader, const std::string& deck, long allocations) {
    return withAllocations(allocations, [&] { return reader.ImportInpFile(deck.c_str()); });
}

class MemoryFailure : public testing::Test {
  protected:
    TempFolder folder;
    std::string small = folder.write("small.inp", kSmallDeck);
    std::string larger = folder.write("larger.inp", kLargerDeck);
};

TEST_F(MemoryFailure, OfAnImportGivesFalseAndLeaksNothing) {
    CapturedOutput quiet;
    {
        CKVOAbaqusReader first;
        importWith(first, small, -1);
    }
    int failures = 0;
    for (bool imported = false; !imported; ++failures) {
        const long before = outstanding;
        {
            CKVOAbaqusReader reader;
            imported = importWith(reader, small, failures);
            walk(reader);
        }
        ASSERT_EQ(outstanding, before) << "after " << failures << " allocations";
    }
    quiet.text();
    EXPECT_GT(failures, 20);
}

TEST_F(MemoryFailure, OfASecondImportLeavesTablesThatCanBeWalked) {
    CapturedOutput quiet;
    for (const auto& [first, second] : {std::pair{small, larger}, std::pair{larger, small}}) {
        bool imported = false;
        for (int allocations = 0; !imported; ++allocations) {
            CKVOAbaqusReader reader;
            ASSERT_TRUE(importWith(reader, first, -1));
            imported = importWith(reader, second, allocations);
            walk(reader);
        }
    }
}

}  // namespace
}  // namespace kvocaeio::test
