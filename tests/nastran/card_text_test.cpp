/// The steps of a card's normalisation one at a time, character for character, and the card codes.
#include "nastran/card_text.h"

#include <gtest/gtest.h>
#include <string>

#include "nastran/card.h"
#include "nastran/cards.h"

namespace kvocaeio::test {
namespace {

using namespace nastran;

std::string normalised(std::string_view raw, LineFeeds lineFeeds = LineFeeds::kKeep) {
    CardText card;
    card.normalise(raw, lineFeeds);
    return std::string(card.view());
}

std::string cleared(std::string_view raw) {
    CardText card;
    card.normalise(raw, LineFeeds::kKeep);
    card.clearHexFiller();
    return std::string(card.view());
}

TEST(LineFeedsOfACard, StayWhereTold) {
    EXPECT_EQ(normalised("GRID\n", LineFeeds::kKeep), "GRID\n");
    EXPECT_EQ(normalised("GRID    \n", LineFeeds::kKeep), "GRID     \n");
    EXPECT_EQ(normalised("GRID    ab\ncd", LineFeeds::kKeep), "GRID     ab\ncd");
    // A line feed is no blank: its group is no filler, and the sign behind it follows something.
    EXPECT_EQ(normalised("GRID       \n  ", LineFeeds::kKeep), "GRID        \n  ");
    EXPECT_EQ(normalised("x\n-5", LineFeeds::kKeep), "x\nE-5");
}

// 64 characters of fillers, each with the blank of its field.
std::string fillers(int count) {
    std::string card;
    for (; count > 0; --count)
        card += "       0 ";
    return card;
}

TEST(LineFeedsOfACard, ArePaddedToColumn72) {
    EXPECT_EQ(normalised("GRID\n", LineFeeds::kPad), "GRID     " + fillers(8));
    EXPECT_EQ(normalised("\n", LineFeeds::kPad), fillers(9));
    EXPECT_EQ(normalised("GRID", LineFeeds::kPad), "GRID");
    const std::string fields(64, '1');
    std::string split;
    for (int i = 0; i < 8; ++i)
        split += "11111111 ";
    // From column 71 one blank is left to put, from 72 none.
    EXPECT_EQ(normalised(fields + "1234567\n", LineFeeds::kPad), split + "1234567  ");
    EXPECT_EQ(normalised(fields + "12345678\n", LineFeeds::kPad), split + "12345678 ");
    EXPECT_EQ(normalised(fields + "123456789\n", LineFeeds::kPad), split + "12345678 9");
    // The second line begins behind the padding; its own line feed is past column 72 then.
    EXPECT_EQ(normalised("GRID\nab\n", LineFeeds::kPad), "GRID     " + fillers(8) + "ab");
    EXPECT_EQ(normalised(fields + "12345678\n\n", LineFeeds::kPad), split + "12345678 ");
}

TEST(LineFeedsOfACard, ArePaddedBeforeTheCommasGrow) {
    // Five characters and 67 blanks, then 21 columns more by the commas: 93, the last group short.
    EXPECT_EQ(normalised("A,,,B\n", LineFeeds::kPad),
              "A               0        0  B       " + fillers(8));
}

TEST(Separators, AreEightBlanks) {
    EXPECT_EQ(normalised("A,B"), "A         B");
    EXPECT_EQ(normalised("A+B"), "A         B");
    EXPECT_EQ(normalised(","), "       0 ");
    EXPECT_EQ(normalised("+"), "       0 ");
    EXPECT_EQ(normalised("12345678,"), "12345678        0 ");
    EXPECT_EQ(normalised("1234567,"), "1234567         0 ");
    EXPECT_EQ(normalised("1.0E+3"), "1.0E         3");
    EXPECT_EQ(normalised("GRID,1,,0.5"), "GRID         1           0      0.5 ");
}

TEST(BlankFields, ReadZero) {
    EXPECT_EQ(normalised(""), "");
    EXPECT_EQ(normalised(" "), "       0 ");
    EXPECT_EQ(normalised("        "), "       0 ");
    EXPECT_EQ(normalised("         "), "       0        0 ");
    EXPECT_EQ(normalised("12345678 "), "12345678        0 ");
    EXPECT_EQ(normalised("12345678        9"), "12345678        0 9");
    // Blank is the space alone.
    EXPECT_EQ(normalised("\t       "), "\t        ");
    EXPECT_EQ(normalised("       \r"), "       \r ");
}

TEST(Fields, PartBehindEveryEighthCharacter) {
    EXPECT_EQ(normalised("1234567"), "1234567");
    EXPECT_EQ(normalised("12345678"), "12345678 ");
    EXPECT_EQ(normalised("123456789"), "12345678 9");
    EXPECT_EQ(normalised("1234567812345678"), "12345678 12345678 ");
    EXPECT_EQ(normalised("GRID,1,0,1.5"), "GRID         1         0         1. 5");
}

TEST(Exponents, GetTheirE) {
    EXPECT_EQ(normalised("1.5-3"), "1.5E-3");
    EXPECT_EQ(normalised("1.5e-3"), "1.5e-3");
    EXPECT_EQ(normalised("1.5E-3"), "1.5E-3");
    EXPECT_EQ(normalised("1.5D-3"), "1.5DE-3");
    EXPECT_EQ(normalised("-3"), "-3");
    EXPECT_EQ(normalised(" -3"), " -3");
    EXPECT_EQ(normalised("--3"), "-E-3");
    EXPECT_EQ(normalised("\t-3"), "\tE-3");
    EXPECT_EQ(normalised("1-2-3"), "1E-2E-3");
    // Fields part first: the sign stands behind a blank, and what gets its "E" stays in its field.
    EXPECT_EQ(normalised("12345678-3"), "12345678 -3");
    EXPECT_EQ(normalised("123456-712345678"), "123456E-7 12345678 ");
    EXPECT_EQ(normalised("--------"), "-E-E-E-E-E-E-E- ");
    EXPECT_EQ(normalised("a,-3"), "a         -3");
}

TEST(Texts, AreHeldWhole) {
    EXPECT_EQ(normalised(std::string(1000, ',')), fillers(1000));
    CardText card;
    card.normalise(std::string(1000, '-'), LineFeeds::kKeep);
    EXPECT_EQ(card.view().size(), 1000U + 875U + 125U);
    card.normalise("short", LineFeeds::kKeep);
    EXPECT_EQ(card.view(), "short");
}

TEST(HexFiller, IsKeptOnceAndWipedBehind) {
    EXPECT_EQ(cleared("C 0 0 0"), "C 0    ");
    EXPECT_EQ(cleared("C 0 10 0"), "C 0 10   ");
    EXPECT_EQ(cleared("C 10 20"), "C 10 20");
    EXPECT_EQ(cleared("C 5 07"), "C 5 07");
    EXPECT_EQ(cleared("C 07 08"), "C 07  8");
    // Left to right in place: behind a wiped zero the next one follows a blank.
    EXPECT_EQ(cleared("C 0 007"), "C 0   7");
    EXPECT_EQ(cleared("C 001"), "C 001");
    // A zero that begins the text follows no blank.
    EXPECT_EQ(cleared("0 0 0"), "0 0  ");
    EXPECT_EQ(cleared("C\t0 0 0"), "C\t0 0  ");
}

TEST(HexFiller, ALabelIsKeptOnceAndWipes16Characters) {
    EXPECT_EQ(cleared("EL"), "E ");
    EXPECT_EQ(cleared("C EL1 2"), "C E    ");
    EXPECT_EQ(cleared("C EL"), "C E ");
    EXPECT_EQ(cleared("C ELL"), "C E  ");
    EXPECT_EQ(cleared("C ENL E L"), "C ENL E  L");
    // "C EL1234 56789012 3456789": from the "L" on up to the last "3".
    EXPECT_EQ(cleared("C EL1234567890123456789"), "C E                456789");
    // After a zero the "E" goes too, and a label after a label.
    EXPECT_EQ(cleared("C 0 EL12"), "C 0      ");
    EXPECT_EQ(cleared("C 0 EL1234567890123450 0"), "C 0                  450   ");
    EXPECT_EQ(cleared("C EL34567890123456 EL"), "C E                6   ");
    // The first zero behind a label is not the first any more.
    EXPECT_EQ(cleared("C EL34567890123456 0 7"), "C E                6   7");
    // A zero whose front was wiped follows a blank.
    EXPECT_EQ(cleared("C EL345678901234507"), "C E                 7");
}

int codeOfLines(const std::string& line, const std::string& continuation = "") {
    CardReader reader;
    return codeOf(reader.read(cardOf(line + continuation, line.size())));
}

TEST(CardCodes, GoByTheName) {
    struct Case {
        const char* name;
        int code;
    };
    constexpr Case kCases[] = {
        {"GRID", 101},    {"CROD", 1001},   {"CTUBE", 1001},  {"CBAR", 1001},   {"CBEAM", 1001},
        {"CTETRA", 1301}, {"CPENTA", 1321}, {"PROD", 2001},   {"PTUBE", 2001},  {"PBAR", 2001},
        {"PBEAM", 2001},  {"PSHELL", 2005}, {"PSHEAR", 2005}, {"PSOLID", 2301}, {"PBARL", 2001},
        {"CQUAD4", 1},    {"CTRIA3", 1},    {"CSHEAR", 1},    {"MAT1", 1},      {"grid", 1},
        {"GRI", 1},       {"", 1},          {"$GRID", 1},     {" $GRID", 101},  {"CONROD", 1},
        {"PCOMP", 1},     {"CTUB-", 1001},  {"PTUB-", 2001},  {"GRID*", 101},   {"CBAR/", 1001},
    };
    for (const Case& name : kCases)
        EXPECT_EQ(codeOfLines(name.name + std::string("\n")), name.code) << name.name;
    EXPECT_EQ(codeOfLines("CHEXA,1\n", ",2\n"), 1331);
    EXPECT_EQ(codeOfLines("CQUAD8,1\n", ",2\n"), 1);
    EXPECT_EQ(codeOfLines("$ CHEXA\n", ",2\n"), 1);
    EXPECT_EQ(codeOfLines(""), 1);
}

TEST(CardNumbersRead, StandInTheirPlaces) {
    CardReader reader;
    const auto read = [&](const std::string& card) { reader.read(cardOf(card)); };
    read("GRID           1       2     3.5     4.5     5.5\n");
    EXPECT_EQ(reader.numbers().ints, (std::array<int, 10>{1, 2}));
    EXPECT_EQ(reader.numbers().doubles, (std::array<double, 3>{3.5, 4.5, 5.5}));
    EXPECT_EQ(reader.numbers().floats, (std::array<float, 5>{}));
    read("PBEAM          6       7     0.0     9.5    10.5    11.5    12.5\n");
    EXPECT_EQ(reader.numbers().ints, (std::array<int, 10>{6, 7}));
    EXPECT_EQ(reader.numbers().floats, (std::array<float, 5>{0, 9.5, 10.5, 11.5, 12.5}));
    EXPECT_EQ(reader.numbers().doubles, (std::array<double, 3>{3.5, 4.5, 5.5}));
    read("PBAR           8       9     0.0     1.0     2.0     3.0\n");
    EXPECT_EQ(reader.numbers().floats, (std::array<float, 5>{0, 1, 2, 11.5, 12.5}));
    read("PROD           8       9     0.0     6.0     7.0     8.0\n");
    EXPECT_EQ(reader.numbers().floats, (std::array<float, 5>{0, 6, 2, 11.5, 12.5}));
    read("PTUBE          8       9     1.0     5.0     7.0     8.0\n");
    EXPECT_EQ(reader.numbers().floats, (std::array<float, 5>{2, 5, 2, 11.5, 12.5}));
    for (const char* name : {"PSHELL", "PSHEAR", "PSOLID"}) {
        read(name + std::string("         8       9     3.0     4.0\n"));
        EXPECT_EQ(reader.numbers().floats, (std::array<float, 5>{3, 5, 2, 11.5, 12.5})) << name;
    }
    read("CPENTA        21      22      23      24      25      26      27      28\n");
    EXPECT_EQ(reader.numbers().ints, (std::array<int, 10>{21, 22, 23, 24, 25, 26, 27, 28}));
    read("CBAR          31      32      33      34      35      36\n");
    EXPECT_EQ(reader.numbers().ints, (std::array<int, 10>{31, 32, 33, 34, 25, 26, 27, 28}));
    read("CTETRA        41      42      43      44      45      46      47      48\n");
    EXPECT_EQ(reader.numbers().ints, (std::array<int, 10>{41, 42, 43, 44, 45, 46, 27, 28}));
    read("CHEXA         51      52      53      54      55      56      57      58\n59 6\n");
    EXPECT_EQ(reader.numbers().ints, (std::array<int, 10>{51, 52, 53, 54, 55, 56, 57, 58, 59, 6}));
}

}  // namespace
}  // namespace kvocaeio::test
