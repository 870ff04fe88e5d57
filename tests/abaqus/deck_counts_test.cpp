/// The counting of tokens against the splitting into tokens.
#include "abaqus/deck_counts.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

#include "abaqus/lines.h"

namespace kvocaeio::abaqus {
namespace {

TEST(CountDataTokens, CountsWhatSeparatorsLeave) {
    EXPECT_EQ(countDataTokens(""), 0u);
    EXPECT_EQ(countDataTokens("\r\n"), 0u);
    EXPECT_EQ(countDataTokens(" , ,,\n"), 0u);
    EXPECT_EQ(countDataTokens("1"), 1u);
    EXPECT_EQ(countDataTokens("1,2, 3 ,4 5,\r\n"), 5u);
    EXPECT_EQ(countDataTokens("\t"), 1u);
    EXPECT_EQ(countDataTokens("a\tb"), 1u);
}

TEST(CountDataTokens, EqualsTheSplittingOfRandomLines) {
    std::mt19937 random(1);
    const std::string alphabet = "12,, -\n\r\t.\x80\xAC\xFF";
    for (int i = 0; i < 200'000; ++i) {
        std::string line(random() % (i % 50 == 0 ? 512 : 40), ' ');
        for (char& c : line)
            c = alphabet[random() % alphabet.size()];
        std::size_t tokens = 0;
        text::Tokens split(line);
        for (std::string_view token; split.next(kDataField, token);)
            ++tokens;
        ASSERT_EQ(countDataTokens(line), tokens) << line;
    }
}

TEST(CountDataTokens, HoldsTheMostTokensOfALine) {
    std::string line;
    for (int i = 0; i < 255; ++i)
        line += "1,";
    EXPECT_EQ(countDataTokens(line), 255u);
}

}  // namespace
}  // namespace kvocaeio::abaqus
