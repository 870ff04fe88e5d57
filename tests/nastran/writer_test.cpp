/// Decks written card by card, byte for byte.
#include <array>
#include <cstdio>
#include <ctime>
#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "nastran/written_deck.h"
#include "support/captured_output.h"
#include "support/comma_locale.h"

namespace kvocaeio::test {
namespace {

TEST(WrittenDecks, WithoutCardsHaveHeaderAndFooter) {
    WrittenDeck deck;
    // The header is complete on the disk before the first card.
    EXPECT_EQ(deck.text(), kHeader);
    EXPECT_TRUE(deck.writer.EndWriting());
    EXPECT_EQ(deck.text(), kHeader + kFooter);
}

TEST(WrittenDecks, TheDateLeavesTheHostsTimeAlone) {
    const std::time_t year2000 = 946'728'000;  // noon of January 1 in Greenwich
    const std::tm* const hosts = std::localtime(&year2000);
    ASSERT_NE(hosts, nullptr);
    const WrittenDeck deck;
    EXPECT_EQ(hosts->tm_year, 100);
}

TEST(WrittenDecks, WithCardsOfAllKinds) {
    WrittenDeck deck("cm");
    std::array<int, 8> nodes{1, 2, 3, 4, 5, 6, 7, 8};
    char note[] = "$ note\nSPC1,1,123456,1\n";
    EXPECT_TRUE(deck.writer.AddNode(1, 0.0, 0.0, 0.0));
    EXPECT_TRUE(deck.writer.AddNode(12, 1.5, -2.25, 100.125));
    EXPECT_TRUE(deck.writer.AddSection(3, 7));
    EXPECT_TRUE(deck.writer.AddElement(1, 3, 4, nodes.data()));
    EXPECT_TRUE(deck.writer.WriteStringEntry(note));
    EXPECT_TRUE(deck.writer.AddElement(2, 3, 6, nodes.data()));
    EXPECT_TRUE(deck.writer.AddElement(3, 3, 8, nodes.data()));
    EXPECT_TRUE(deck.writer.EndWriting());
    EXPECT_EQ(deck.text(), headerOf("cm", "N/cm^2", "T/cm^3") +
                               "GRID   ,       1,       0,   0.000,   0.000,   0.000,       0\n"
                               "GRID   ,      12,       0,   1.500,  -2.250, 100.125,       0\n"
                               "PSOLID ,      3,      1,1\n"
                               "CTETRA ,      1,      3,      1,      2,      3,      4\n"
                               "$ note\nSPC1,1,123456,1\n"
                               "CPENTA ,      2,      3,      1,      2,      3,      4,      5,"
                               "      6\n"
                               "CHEXA  ,      3,      3,      1,      2,      3,      4,      5,"
                               "      6\n"
                               "       ,      7,      8\n" +
                               kFooter);
}

TEST(WrittenDecks, HaveThePlatformsLineEnds) {
    WrittenDeck deck;
    char content[] = "one\ntwo\n";
    EXPECT_TRUE(deck.writer.AddNode(1, 0, 0, 0));
    EXPECT_TRUE(deck.writer.WriteStringEntry(content));
    EXPECT_TRUE(deck.writer.EndWriting());
    const std::string bytes = readBytes(deck.path);
    std::size_t lineFeeds = 0, carriageReturns = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        carriageReturns += bytes[i] == '\r';
        if (bytes[i] != '\n')
            continue;
        ++lineFeeds;
#if defined(_WIN32)
        EXPECT_EQ(bytes[i - 1], '\r') << i;
#endif
    }
    EXPECT_EQ(lineFeeds, 34U + 3U + 4U);
#if defined(_WIN32)
    EXPECT_EQ(carriageReturns, lineFeeds);
#else
    EXPECT_EQ(carriageReturns, 0U);
#endif
}

TEST(WrittenDecks, AreNotReadBack) {
    WrittenDeck deck;
    std::array<int, 4> nodes{1, 1, 1, 1};
    EXPECT_TRUE(deck.writer.AddNode(12, 1.5, -2.25, 100.125));
    EXPECT_TRUE(deck.writer.AddElement(1, 1, 4, nodes.data()));
    EXPECT_TRUE(deck.writer.EndWriting());
    KVONASTRAN_Reader reader;
    EXPECT_FALSE(reader.SetFilePath(deck.path.c_str()));
}

TEST(WrittenDecks, ReplaceAnOlderFile) {
    TempFolder folder;
    const std::string path = folder.write("deck.nas", std::string(100000, 'x'));
    KVONASTRAN_Writer writer;
    EXPECT_TRUE(writer.SetFilePath(path.c_str()));
    EXPECT_TRUE(writer.EndWriting());
    EXPECT_EQ(withoutDate(readText(path)), kHeader + kFooter);
}

TEST(WrittenDecks, NothingIsPrinted) {
    CapturedOutput output;
    {
        WrittenDeck deck;
        EXPECT_TRUE(deck.writer.AddNode(1, 0, 0, 0));
    }
    EXPECT_EQ(output.text(), "");
}

std::string gridOf(int id, double x, double y, double z) {
    WrittenDeck deck;
    EXPECT_TRUE(deck.writer.AddNode(id, x, y, z));
    return deck.cards();
}

TEST(Nodes, HaveThreeDecimals) {
    EXPECT_EQ(gridOf(1, 0.0625, 0.1875, 0.0005),  // two of them half way between
              "GRID   ,       1,       0,   0.062,   0.188,   0.001,       0\n");
    EXPECT_EQ(gridOf(1, -0.0, -0.0004, 9999.9996),
              "GRID   ,       1,       0,  -0.000,  -0.000,10000.000,       0\n");
    EXPECT_EQ(gridOf(1, 9999.9994, 9999.9995, -999.9996),  // the second is just below half way
              "GRID   ,       1,       0,9999.999,9999.999,-1000.000,       0\n");
    EXPECT_EQ(gridOf(1, 9999999.5, 9999999.9994, 9999999.9996),
              "GRID   ,       1,       0,9999999.500,9999999.999,10000000.000,       0\n");
    EXPECT_EQ(gridOf(1, 1234.5678, -123.4567, 1e-300),
              "GRID   ,       1,       0,1234.568,-123.457,   0.000,       0\n");
}

TEST(Nodes, WidenForLongNumbers) {
    EXPECT_EQ(gridOf(123456789, 12345.6789, -12345.6789, 1e22),
              "GRID   ,123456789,       0,12345.679,-12345.679,10000000000000000000000.000,"
              "       0\n");
    EXPECT_EQ(gridOf(std::numeric_limits<int>::min(), 0, 0, 0),
              "GRID   ,-2147483648,       0,   0.000,   0.000,   0.000,       0\n");
    EXPECT_EQ(gridOf(std::numeric_limits<int>::max(), 0, 0, 1267650600228229401496703205376.0),
              "GRID   ,2147483647,       0,   0.000,   0.000,"
              "1267650600228229401496703205376.000,       0\n");
}

TEST(Nodes, OfAnySizeAreWrittenInFull) {
    const std::string largest =
        "179769313486231570814527423731704356798070567525844996598917476803157260780028538760589558"
        "632766878171540458953514382464234321326889464182768467546703537516986049910576551282076245"
        "490090389328944075868508455133942304583236903222948165808559332123348274797826204144723168"
        "738177180919299881250404026184124858368.000";
    constexpr double kLargest = std::numeric_limits<double>::max();
    EXPECT_EQ(
        gridOf(1, kLargest, -kLargest, kLargest),
        "GRID   ,       1,       0," + largest + ",-" + largest + "," + largest + ",       0\n");
}

TEST(Nodes, ThatAreNoNumbersHaveTheirWidth) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(gridOf(1, kInfinity, -kInfinity, std::numeric_limits<double>::quiet_NaN()),
              "GRID   ,       1,       0,     inf,    -inf,     nan,       0\n");
}

TEST(Nodes, AreWrittenTheSameInAnyLocale) {
    const CommaLocale locale;
    if (!locale.found())
        GTEST_SKIP() << kNoCommaLocale;
    EXPECT_EQ(gridOf(1000000, 1234567.5, 1.5, 1e22),
              "GRID   , 1000000,       0,1234567.500,   1.500,10000000000000000000000.000,"
              "       0\n");
}

TEST(SectionsWritten, AlwaysHaveMaterialOne) {
    WrittenDeck deck;
    EXPECT_TRUE(deck.writer.AddSection(3, 7));
    EXPECT_TRUE(deck.writer.AddSection(-3, -7));
    EXPECT_TRUE(deck.writer.AddSection(0, 0));
    EXPECT_TRUE(deck.writer.AddSection(12345678, 2));
    EXPECT_EQ(deck.cards(),
              "PSOLID ,      3,      1,1\n"
              "PSOLID ,     -3,      1,1\n"
              "PSOLID ,      0,      1,1\n"
              "PSOLID ,12345678,      1,1\n");
}

TEST(Elements, WidenForLongNumbers) {
    WrittenDeck deck;
    std::array<int, 8> nodes{1234567, -123456, 12345678, 0, 2147483647, -2147483647, -1, 123456789};
    EXPECT_TRUE(deck.writer.AddElement(-1, 10000000, 4, nodes.data()));
    EXPECT_TRUE(deck.writer.AddElement(9999999, 0, 6, nodes.data()));
    EXPECT_TRUE(deck.writer.AddElement(99999999, -10000000, 8, nodes.data()));
    EXPECT_EQ(deck.cards(),
              "CTETRA ,     -1,10000000,1234567,-123456,12345678,      0\n"
              "CPENTA ,9999999,      0,1234567,-123456,12345678,      0,2147483647,-2147483647\n"
              "CHEXA  ,99999999,-10000000,1234567,-123456,12345678,      0,2147483647,"
              "-2147483647\n"
              "       ,     -1,123456789\n");
}

TEST(Elements, OfOtherCountsAreNotWritten) {
    WrittenDeck deck;
    std::array<int, 20> nodes{};
    for (int count = -8; count <= 27; ++count)
        EXPECT_EQ(deck.writer.AddElement(1, 1, count, nodes.data()),
                  count == 4 || count == 6 || count == 8)
            << count;
    EXPECT_FALSE(deck.writer.AddElement(1, 1, std::numeric_limits<int>::min(), nodes.data()));
    EXPECT_FALSE(deck.writer.AddElement(1, 1, 5, nullptr));
    EXPECT_EQ(deck.cards(),
              "CTETRA ,      1,      1,      0,      0,      0,      0\n"
              "CPENTA ,      1,      1,      0,      0,      0,      0,      0,      0\n"
              "CHEXA  ,      1,      1,      0,      0,      0,      0,      0,      0\n"
              "       ,      0,      0\n");
}

TEST(StringEntries, StandAsTheyAre) {
    WrittenDeck deck;
    char first[] = "FORCE,1";
    char percent[] = " 100%s %n %d\n";
    char empty[] = "";
    std::string longText(100000, 'x');
    EXPECT_TRUE(deck.writer.WriteStringEntry(first));
    EXPECT_TRUE(deck.writer.AddSection(3, 1));
    EXPECT_TRUE(deck.writer.WriteStringEntry(percent));
    EXPECT_TRUE(deck.writer.WriteStringEntry(empty));
    EXPECT_TRUE(deck.writer.WriteStringEntry(longText.data()));
    EXPECT_EQ(deck.cards(), "FORCE,1PSOLID ,      3,      1,1\n 100%s %n %d\n" + longText);
}

TEST(ManyCards, ArriveInTheirOrder) {
    constexpr int kCount = 20000;
    WrittenDeck deck;
    std::string expected;
    for (int i = 0; i < kCount; ++i) {
        EXPECT_TRUE(deck.writer.AddNode(i, i, 0.5, -i));
        char line[80];
        std::snprintf(line, sizeof line, "GRID   ,%8d,       0,%4d.000,   0.500,%4d.000,       0\n",
                      i, i, -i);
        expected += line;
    }
    expected.replace(expected.find(",   0.000,   0.500,   0"), 19, ",   0.000,   0.500,");
    EXPECT_TRUE(deck.cards() == expected);
}

}  // namespace
}  // namespace kvocaeio::test
