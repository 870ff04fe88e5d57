/// Facts of the tokens.
#include "text/tokens.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kvocaeio::text {
namespace {

constexpr Delimiters kFields(", \t\n");

std::vector<std::string> tokensOf(std::string_view text) {
    Tokens tokens(text);
    std::vector<std::string> all;
    for (std::string_view token; tokens.next(kFields, token);)
        all.emplace_back(token);
    return all;
}

using Texts = std::vector<std::string>;

TEST(Tokens, DelimitersInARowSeparateOnce) {
    EXPECT_EQ(tokensOf(" ,1,, 2\t3\n"), (Texts{"1", "2", "3"}));
}

TEST(Tokens, TextWithoutDelimiterIsOneToken) {
    EXPECT_EQ(tokensOf("*NODE"), Texts{"*NODE"});
}

TEST(Tokens, DelimitersAloneAreNoToken) {
    EXPECT_EQ(tokensOf(""), Texts{});
    EXPECT_EQ(tokensOf(" , \n"), Texts{});
}

TEST(Tokens, EveryCallMayUseItsOwnDelimiters) {
    constexpr Delimiters value("=,");
    Tokens tokens("TYPE = S3,ELSET=A");
    std::string_view token;
    EXPECT_TRUE(tokens.next(kFields, token));
    EXPECT_EQ(token, "TYPE");
    EXPECT_TRUE(tokens.next(value, token));  // begins behind the blank that ended "TYPE"
    EXPECT_EQ(token, " S3");
    EXPECT_TRUE(tokens.next(kFields, token));
    EXPECT_EQ(token, "ELSET=A");
}

TEST(Tokens, EndGivesAnEmptyToken) {
    Tokens tokens("a");
    std::string_view token;
    EXPECT_TRUE(tokens.next(kFields, token));
    EXPECT_FALSE(tokens.next(kFields, token));
    EXPECT_EQ(token, "");
}

TEST(Tokens, DelimitersOfAllBytes) {
    constexpr Delimiters high("\xFF");
    Tokens tokens("a\xFF\x7F");
    std::string_view token;
    EXPECT_TRUE(tokens.next(high, token));
    EXPECT_EQ(token, "a");
    EXPECT_TRUE(tokens.next(high, token));
    EXPECT_EQ(token, "\x7F");
}

TEST(TrimBlanks, TakesBlanksOffBothEnds) {
    EXPECT_EQ(trimBlanks("  a b  "), "a b");
    EXPECT_EQ(trimBlanks("\ta "), "\ta");
    EXPECT_EQ(trimBlanks("   "), "");
    EXPECT_EQ(trimBlanks(""), "");
}

TEST(Tokens, TheRestIsWhatNoTokenHasTaken) {
    Tokens tokens("a, b, c");
    std::string_view token;
    ASSERT_TRUE(tokens.next(Delimiters(", "), token));
    EXPECT_EQ(tokens.rest(), " b, c");
}

}  // namespace
}  // namespace kvocaeio::text
