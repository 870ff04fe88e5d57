/// Findings are folded by kind, in bounded memory.
#include "text/findings.h"

#include <gtest/gtest.h>
#include <string>

namespace kvocaeio::text {
namespace {

enum class Kind { kTorn, kCut };
constexpr std::array kKinds{FindingKind{"test.torn", "a number is torn"},
                            FindingKind{"test.cut", "a line is cut"}};

constexpr std::size_t kTorn = 0;
constexpr std::size_t kCut = 1;

TEST(Findings, AreCountedByKind) {
    Findings findings(kKinds);
    EXPECT_EQ(findings.count(kTorn), 0u);
    findings.note(kCut, 3, 0, "abc");
    findings.note(kCut, 4, 2, "d");
    EXPECT_EQ(findings.count(kTorn), 0u);
    ASSERT_EQ(findings.places(kCut).size(), 2u);
    EXPECT_EQ(findings.places(kCut)[0].line, 3u);
    EXPECT_EQ(findings.places(kCut)[1].column, 2u);
    EXPECT_EQ(findings.places(kCut)[1].text(), "d");
    EXPECT_EQ(findings.kinds()[kCut].code, "test.cut");
}

TEST(Findings, KeepTheFirstPlacesAndTheWholeCount) {
    Findings findings(kKinds);
    for (std::size_t line = 1; line <= 1'000'000; ++line)
        findings.note(kTorn, line, 1, "x");
    EXPECT_EQ(findings.count(kTorn), 1'000'000u);
    ASSERT_EQ(findings.places(kTorn).size(), 8u);
    EXPECT_EQ(findings.places(kTorn)[7].line, 8u);
}

TEST(Findings, KeepEightyCharactersOfTheTextWithoutItsLineEnd) {
    Findings findings(kKinds);
    findings.note(kTorn, 1, 0, "short \r\n");
    findings.note(kTorn, 2, 0, std::string(80, 'a') + "b");
    findings.note(kTorn, 3, 0, "\n");
    EXPECT_EQ(findings.places(kTorn)[0].text(), "short ");
    EXPECT_EQ(findings.places(kTorn)[1].text(), std::string(80, 'a'));
    EXPECT_EQ(findings.places(kTorn)[2].text(), "");
}

TEST(Findings, AreNotedWithoutALineThroughAListener) {
    Findings findings(kKinds);
    Listener{&findings, nullptr}.note(Kind::kTorn, "NAME");
    Listener{}.note(Kind::kTorn, "NAME");
    ASSERT_EQ(findings.count(kTorn), 1u);
    EXPECT_EQ(findings.places(kTorn)[0].line, 0u);
    EXPECT_EQ(findings.places(kTorn)[0].text(), "NAME");
}

}  // namespace
}  // namespace kvocaeio::text
