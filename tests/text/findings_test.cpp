/// Findings are folded by kind, in bounded memory.
#include "text/findings.h"

#include <gtest/gtest.h>
#include <string>

namespace kvocaeio::text {
namespace {

enum class Kind { kTorn, kCut };
constexpr std::array kKinds{FindingKind{"test.torn", "a number is torn"},
                            FindingKind{"test.cut", "a line is cut"}};

constexpr std::size_t kTornRow = 0;
constexpr std::size_t kCutRow = 1;

TEST(Findings, AreCountedByKind) {
    Findings findings(kKinds);
    EXPECT_EQ(findings.count(kTornRow), 0u);
    findings.note(kCutRow, 3, 0, "abc");
    findings.note(kCutRow, 4, 2, "d");
    EXPECT_EQ(findings.count(kTornRow), 0u);
    ASSERT_EQ(findings.places(kCutRow).size(), 2u);
    EXPECT_EQ(findings.places(kCutRow)[0].line, 3u);
    EXPECT_EQ(findings.places(kCutRow)[1].column, 2u);
    EXPECT_EQ(findings.places(kCutRow)[1].text(), "d");
    EXPECT_EQ(findings.kinds()[kCutRow].code, "test.cut");
}

TEST(Findings, KeepTheFirstPlacesAndTheWholeCount) {
    Findings findings(kKinds);
    for (std::size_t line = 1; line <= 1'000'000; ++line)
        findings.note(kTornRow, line, 1, "x");
    EXPECT_EQ(findings.count(kTornRow), 1'000'000u);
    ASSERT_EQ(findings.places(kTornRow).size(), 8u);
    EXPECT_EQ(findings.places(kTornRow)[7].line, 8u);
}

TEST(Findings, KeepEightyCharactersOfTheTextWithoutItsLineEnd) {
    Findings findings(kKinds);
    findings.note(kTornRow, 1, 0, "short \r\n");
    findings.note(kTornRow, 2, 0, std::string(80, 'a') + "b");
    findings.note(kTornRow, 3, 0, "\n");
    EXPECT_EQ(findings.places(kTornRow)[0].text(), "short ");
    EXPECT_EQ(findings.places(kTornRow)[1].text(), std::string(80, 'a'));
    EXPECT_EQ(findings.places(kTornRow)[2].text(), "");
}

TEST(Findings, AreNotedWithoutALineThroughAListener) {
    Findings findings(kKinds);
    Listener{&findings, nullptr}.note(Kind::kTorn, "NAME");
    Listener{}.note(Kind::kTorn, "NAME");
    ASSERT_EQ(findings.count(kTornRow), 1u);
    EXPECT_EQ(findings.places(kTornRow)[0].line, 0u);
    EXPECT_EQ(findings.places(kTornRow)[0].text(), "NAME");
}

}  // namespace
}  // namespace kvocaeio::text
