/// Memory and time of imports that could ask for far too much; a program of its own, as the peak of
/// a process never falls again.
#include <gtest/gtest.h>
#include <string>

#include "abaqus/imported_deck.h"
#include "support/hostile_texts.h"
#include "support/peak_memory.h"

namespace kvocaeio::test {
namespace {

bool importQuietly(CKVOAbaqusReader& reader, const std::string& path) {
    const TimeLimit limit(60.0);
    CapturedOutput output;
    return reader.ImportInpFile(path.c_str());
}

TEST(ImportMemory, OidsNearTheEndOfInt) {
    TempFolder folder;
    std::string deck = "*NODE\n";
    for (const char* oid : {"1", "2000000000", "2000000001", "1999000000", "2147483647"})
        deck += std::string(oid) + ", 1, 2, 3\n";
    deck += "*ELEMENT, TYPE=S3\n5, 1, 2, 3\n2147483647, 4, 5, 6\n2000000000, 7, 8, 9\n";
    CKVOAbaqusReader reader;
    ASSERT_TRUE(importQuietly(reader, folder.write("deck.inp", deck)));
    double xyz[3] = {};
    CKVOAbaqusReader::NodeData node{0, xyz};
    int first = 0;
    CKVOAbaqusReader::ElemData element{0, 0, &first};
    EXPECT_TRUE(reader.GetNodeDataByOID(2147483647, &node));
    EXPECT_TRUE(reader.GetElemNodesByOID(2000000000, &element));
    EXPECT_EQ(first, 7);
    for (int oid = 0; oid < 2000000000; oid += 10000000)
        EXPECT_TRUE(reader.GetNodeDataByOID(oid, &node));
    EXPECT_LT(peakMemory(), 100.0);
}

TEST(ImportMemory, ManyReadersInARow) {
    TempFolder folder;
    const std::string path = folder.write(
        "deck.inp", "*NODE\n2147483647, 1, 2, 3\n*ELEMENT, TYPE=S3\n2147483647, 1, 2, 3\n");
    for (int round = 0; round < 200; ++round) {
        CKVOAbaqusReader reader;
        ASSERT_TRUE(importQuietly(reader, path));
    }
    EXPECT_LT(peakMemory(), 100.0);
}

TEST(ImportMemory, AnUnknownLineOf100Megabytes) {
    TempFolder folder;
    CKVOAbaqusReader reader;
    EXPECT_TRUE(importQuietly(reader, writeLongLine(folder, "", 'x')));
    EXPECT_EQ(reader.GetNodeNum(), 0);
    EXPECT_LT(peakMemory(), 100.0);
}

TEST(ImportMemory, ANodeLineOf100Megabytes) {
    TempFolder folder;
    CKVOAbaqusReader reader;
    EXPECT_TRUE(importQuietly(reader, writeLongLine(folder, "*NODE\n", '1')));
    // 100,000,000 bytes in pieces of 511.
    EXPECT_EQ(reader.GetNodeNum(), 195695);
    CKVOAbaqusReader::NodeData node;
    ASSERT_TRUE(reader.GetNodeNext(&node));
    EXPECT_EQ(node.id, 2147483647);
    EXPECT_LT(peakMemory(), 100.0);
}

TEST(ImportMemory, AKeywordLineOf100Megabytes) {
    TempFolder folder;
    CKVOAbaqusReader reader;
    EXPECT_TRUE(importQuietly(reader, writeLongLine(folder, "*ELEMENT, TYPE=C3D4, ELSET=", 'A')));
    EXPECT_EQ(reader.GetElemSecNum(), 1);
    EXPECT_LT(peakMemory(), 100.0);
}

}  // namespace
}  // namespace kvocaeio::test
