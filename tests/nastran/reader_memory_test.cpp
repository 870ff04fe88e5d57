/// Memory of decks that could ask for far too much; a program of its own, as the peak of a process
/// never falls again.
#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "nastran/deck.h"
#include "support/hostile_texts.h"
#include "support/peak_memory.h"

namespace kvocaeio::test {
namespace {

TEST(ReaderMemory, OneNodeNumberedFiftyMillion) {
    ReadDeck deck("GRID    50000000       0     1.5     2.5     3.5\n" + kTetra);
#if !defined(_WIN32)  // elsewhere memory may be too short for it
    ASSERT_TRUE(deck.result);
#endif
    if (deck.result) {
        EXPECT_EQ(deck.reader.GetNodeCout(), 50000000);
        EXPECT_EQ(deck.node(50000000), (NodeRow{50000000, 1.5F, 2.5F, 3.5F}));
        EXPECT_EQ(deck.node(25000000), kNoNode);
    }
    EXPECT_LT(peakMemory(), 100.0);
}

TEST(ReaderMemory, TheLargestOidsOfAll) {
    // Eight digits are the most that a field holds: arrays of 1.6, 3.6, 1.2 and 0.4 GB.
    ReadDeck deck(
        "GRID    99999999       0     1.5     2.5     3.5\n"
        "CBAR    99999999       1       7       8\n"
        "PSOLID  9999999999999999       3\n");
    if (deck.result) {
        EXPECT_EQ(deck.reader.GetNodeCout(), 99999999);
        EXPECT_EQ(deck.element(99999999), (ElementRow{99999999, 7, 8, 8, 8, 8, 8, 8, 8}));
        EXPECT_EQ(deck.section(1), (SectionRowOfThree{99999999, 99999999, 3}));
        EXPECT_EQ(deck.reader.GetPropertiesCout(), 1);
    } else {
        EXPECT_EQ(deck.reader.GetNodeCout(), 0);
        EXPECT_EQ(deck.reader.GetElemVector(), nullptr);
    }
    EXPECT_LT(peakMemory(), 100.0);
}

TEST(ReaderMemory, MoreDigitsThanAFieldHas) {
    // The number is cut behind its eighth digit, here before the last two.
    ReadDeck deck("GRID      2147483647\n" + kTetra);
    ASSERT_TRUE(deck.result);
    EXPECT_EQ(deck.reader.GetNodeCout(), 214748);
    EXPECT_LT(peakMemory(), 100.0);
}

TEST(ReaderMemory, IsReleasedWithEachReader) {
    TempFolder folder;
    const std::string path = folder.write("deck.nas", "GRID      300000\nCBAR      100000\n");
    for (int round = 0; round < 50; ++round) {
        KVONASTRAN_Reader reader;
        for (int time = 0; time < 2; ++time) {
            ASSERT_TRUE(reader.SetFilePath(path.c_str()));
            // Only what is written to takes memory: eight megabytes.
            std::fill_n(reader.GetNodeVector(), 4 * 300000, 1.0F);
            std::fill_n(reader.GetElemVector(), 9 * 100000, 1);
        }
    }
    EXPECT_LT(peakMemory(), 100.0);
}

TEST(ReaderMemory, LinesOf100MegabytesWithoutAnEnd) {
    for (const char* begin : {"", "$", "GRID    ", "CHEXA,"}) {
        TempFolder folder;
        const std::string path = writeLongLine(folder, kGrid + kTetra + begin, '1');
        {
            const TimeLimit limit(60.0);
            KVONASTRAN_Reader reader;
            // "GRID" is node 11111111; nothing else counts.
            reader.SetFilePath(path.c_str());
        }
        EXPECT_LT(peakMemory(), 100.0) << begin;
    }
}

}  // namespace
}  // namespace kvocaeio::test
