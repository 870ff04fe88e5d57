/// Tokens against `strtok` on random texts, the delimiters changing from call to call.
#include <cstring>
#include <gtest/gtest.h>
#include <string>

#include "text/random.h"
#include "text/tokens.h"

namespace kvocaeio::text {
namespace {

TEST(TokensAgainstStrtok, RandomTexts) {
    constexpr const char* kSets[] = {", \t\r\n", ",", "=,", "=", " ", "\n", "!", "a="};
    test::Random random(2);
    for (int round = 0; round < 300'000; ++round) {
        std::string text;
        for (std::size_t i = random.below(24); i > 0; --i)
            text += "ab12=,, \t\n!."[random.below(12)];
        std::string copy = text;
        Tokens tokens(text);
        for (char* rest = copy.data();; rest = nullptr) {
            const char* set = kSets[random.below(std::size(kSets))];
            const char* expected = std::strtok(rest, set);
            std::string_view token;
            ASSERT_EQ(tokens.next(Delimiters(set), token), expected != nullptr) << text;
            if (expected == nullptr)
                break;
            ASSERT_EQ(token, expected) << text;
        }
    }
}

}  // namespace
}  // namespace kvocaeio::text
