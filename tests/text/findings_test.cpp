/// Findings are folded by kind and subject, in bounded memory.
#include "text/findings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "support/findings.h"
#include "text/place_text.h"

namespace kvocaeio::text {
namespace {

using test::countOf;
using test::placesOf;

enum class Kind { kTorn, kCut };
constexpr std::array kKinds{
    FindingKind{"test.torn", Severity::kWarning, "a number is torn", "", ""},
    FindingKind{"test.cut", Severity::kError, "a line is cut", "", ""}};

const FindingKind& rowOf(Kind kind) {
    return kKinds[static_cast<std::size_t>(kind)];
}

TEST(Findings, AreCountedByKind) {
    Findings findings;
    EXPECT_EQ(countOf(findings, Kind::kTorn), 0u);
    findings.note(rowOf(Kind::kCut), 3, 0, "abc");
    findings.note(rowOf(Kind::kCut), 4, 2, "d");
    EXPECT_EQ(countOf(findings, Kind::kTorn), 0u);
    EXPECT_THAT(test::describe(findings),
                testing::ElementsAre("test.cut 3:0 abc", "test.cut 4:2 d"));
}

TEST(Findings, KeepTheFirstPlacesAndTheWholeCount) {
    Findings findings;
    for (std::size_t line = 1; line <= 1'000'000; ++line)
        findings.note(rowOf(Kind::kTorn), line, 1, "x");
    EXPECT_EQ(countOf(findings, Kind::kTorn), 1'000'000u);
    EXPECT_EQ(findings.entryCount(), 1u);
    ASSERT_EQ(placesOf(findings, Kind::kTorn).size(), 8u);
    EXPECT_EQ(placesOf(findings, Kind::kTorn)[7].line, 8u);
}

TEST(Findings, AreKeptApartByTheirSubjects) {
    Findings findings;
    findings.note(rowOf(Kind::kTorn), 1, 0, "*A", "A");
    findings.note(rowOf(Kind::kTorn), 2, 0, "*B", "B");
    findings.note(rowOf(Kind::kTorn), 3, 0, "*A", "A");
    EXPECT_THAT(test::describe(findings),
                testing::ElementsAre("test.torn (A) 1:0 *A", "test.torn (A) 3:0 *A",
                                     "test.torn (B) 2:0 *B"));
    EXPECT_EQ(findings.entry(0).count, 2u);
}

TEST(Findings, FoldWhatHasTooManySubjects) {
    Findings findings;
    for (int subject = 0; subject < 100'000; ++subject)
        findings.note(rowOf(Kind::kTorn), 1, 0, "", std::to_string(subject));
    findings.note(rowOf(Kind::kCut), 1, 0, "", "first");
    ASSERT_EQ(findings.entryCount(), Findings::kMostSubjects + 2);
    const FindingEntry& others = findings.entry(Findings::kMostSubjects);
    EXPECT_EQ(others.subject(), Findings::kOtherSubjects);
    EXPECT_EQ(others.count, 100'000u - Findings::kMostSubjects);
    EXPECT_EQ(countOf(findings, Kind::kTorn), 100'000u);
    EXPECT_EQ(countOf(findings, Kind::kCut), 1u);
    EXPECT_EQ(findings.lostCount(), 0u);
}

TEST(Findings, KeepEightyCharactersOfTheTextWithoutItsLineEnd) {
    Findings findings;
    findings.note(rowOf(Kind::kTorn), 1, 0, "short \r\n");
    findings.note(rowOf(Kind::kTorn), 2, 0, std::string(80, 'a') + "b");
    findings.note(rowOf(Kind::kTorn), 3, 0, "\n");
    const auto places = placesOf(findings, Kind::kTorn);
    EXPECT_EQ(places[0].text(), "short ");
    EXPECT_EQ(places[1].text(), std::string(80, 'a'));
    EXPECT_EQ(places[2].text(), "");
}

TEST(Findings, TakeWordsAndNumbersForThePlace) {
    Findings findings;
    noteText(&findings, Kind::kTorn, "node ", -7, " of element ", 8);
    noteText(&findings, Kind::kTorn, std::string(76, 'x'), 12345);
    noteText(nullptr, Kind::kTorn, "nobody listens");
    ASSERT_EQ(findings.entry(0).places().size(), 2u);
    EXPECT_EQ(findings.entry(0).places()[0].text(), "node -7 of element 8");
    EXPECT_EQ(findings.entry(0).places()[1].text(), std::string(76, 'x') + "1234");
}

TEST(Findings, BelongToTheFileThatWasBegunLast) {
    Findings findings;
    findings.beginFile("one");
    findings.note(rowOf(Kind::kTorn), 1, 0, "");
    findings.beginFile("two");
    findings.note(rowOf(Kind::kTorn), 2, 0, "");
    findings.beginFile("one");
    findings.note(rowOf(Kind::kTorn), 3, 0, "");
    ASSERT_EQ(findings.fileCount(), 2u);
    const auto places = placesOf(findings, Kind::kTorn);
    EXPECT_EQ(findings.file(places[0].file), "one");
    EXPECT_EQ(findings.file(places[1].file), "two");
    EXPECT_EQ(findings.file(places[2].file), "one");
}

TEST(Findings, KnowTheErrorThatWasNoticedLast) {
    Findings findings;
    EXPECT_EQ(findings.lastError(), nullptr);
    findings.note(rowOf(Kind::kCut), 1, 0, "");
    findings.note(rowOf(Kind::kTorn), 2, 0, "");
    ASSERT_NE(findings.lastError(), nullptr);
    EXPECT_EQ(findings.lastError()->kind->code, "test.cut");
}

TEST(Findings, AreForgotten) {
    Findings findings;
    findings.beginFile("one");
    findings.note(rowOf(Kind::kCut), 1, 0, "", "subject");
    findings.clear();
    EXPECT_EQ(findings.entryCount(), 0u);
    EXPECT_EQ(findings.fileCount(), 0u);
    EXPECT_EQ(findings.lastError(), nullptr);
    findings.note(rowOf(Kind::kCut), 2, 0, "", "subject");
    EXPECT_THAT(test::describe(findings), testing::ElementsAre("test.cut (subject) 2:0 "));
}

TEST(Findings, AreNotedWithoutALineThroughAListener) {
    Findings findings;
    Listener{&findings, nullptr}.note(Kind::kTorn, "NAME");
    Listener{}.note(Kind::kTorn, "NAME");
    EXPECT_THAT(test::describe(findings), testing::ElementsAre("test.torn 0:0 NAME"));
}

}  // namespace
}  // namespace kvocaeio::text
