/// The place of a finding in its file, and a host that follows a pass and stops it.
#include "text/pass_lines.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "support/files.h"
#include "support/findings.h"
#include "text/file.h"

namespace kvocaeio::text {
namespace {

enum class LineKind { kNoted, kCut };
constexpr std::array kLineKinds{
    FindingKind{"test.noted", Severity::kNote, "it is noted", "", ""},
    FindingKind{"test.cut", Severity::kWarning, "the line is cut", "", ""}};

const FindingKind& rowOf(LineKind kind) {
    return kLineKinds[static_cast<std::size_t>(kind)];
}

class PassLinesTest : public testing::Test {
  protected:
    PassLines linesOf(std::string_view content, std::size_t bound, LineMode mode) {
        file_ = openFile(folder_.write("file", content).c_str(), "rb");
        return {file_.get(), bound, mode, listener_, LineKind::kCut};
    }

    std::size_t countOf(LineKind kind) const { return test::countOf(findings_, kind); }
    std::vector<FindingPlace> placesOf(LineKind kind) const {
        return test::placesOf(findings_, kind);
    }

    Findings findings_;
    Watch watch_;
    Listener listener_{&findings_, nullptr};

  private:
    test::TempFolder folder_;
    File file_;
};

TEST_F(PassLinesTest, NotesALineByItsNumber) {
    PassLines lines = linesOf("a\n\nbad\r\nc", 80, LineMode::kText);
    while (lines.next())
        if (lines.line() == "bad\n" || lines.line() == "c")
            lines.note(LineKind::kNoted);
    ASSERT_EQ(countOf(LineKind::kNoted), 2u);
    EXPECT_EQ(placesOf(LineKind::kNoted)[0].line, 3u);
    EXPECT_EQ(placesOf(LineKind::kNoted)[0].column, 0u);
    EXPECT_EQ(placesOf(LineKind::kNoted)[0].text(), "bad");
    EXPECT_EQ(placesOf(LineKind::kNoted)[1].line, 4u);
}

TEST_F(PassLinesTest, NotesLinesOfWhichANulHidesAPart) {
    PassLines lines = linesOf(std::string_view("a\0b\nc\n\0\nd", 9), 80, LineMode::kBinary);
    ASSERT_TRUE(lines.next());
    lines.giveBack();
    EXPECT_EQ(countOf(LineKind::kNoted), 0u);
    lines.noteNulsAs(LineKind::kNoted);
    while (lines.next())
        if (lines.line() == "a") {
            lines.giveBack();
            EXPECT_TRUE(lines.next());
        }
    ASSERT_EQ(countOf(LineKind::kNoted), 2u);
    EXPECT_EQ(placesOf(LineKind::kNoted)[0].line, 1u);
    EXPECT_EQ(placesOf(LineKind::kNoted)[0].text(), "a");
    EXPECT_EQ(placesOf(LineKind::kNoted)[1].line, 3u);
}

TEST_F(PassLinesTest, CountsTheLinesAfterOne) {
    PassLines lines = linesOf("a\nb\na line of several pieces\n\nc", 8, LineMode::kBinary);
    ASSERT_TRUE(lines.next());
    EXPECT_EQ(lines.linesAfter(), 4u);
    EXPECT_FALSE(lines.next());
    EXPECT_EQ(lines.linesAfter(), 0u);
    EXPECT_EQ(countOf(LineKind::kCut), 0u);
}

TEST_F(PassLinesTest, CountsNoLinesWhileNobodyListens) {
    listener_.findings = nullptr;
    PassLines lines = linesOf("a\nb\n", 8, LineMode::kBinary);
    ASSERT_TRUE(lines.next());
    EXPECT_EQ(lines.linesAfter(), 0u);
    EXPECT_TRUE(lines.next());
}

TEST_F(PassLinesTest, NotesAFieldByItsColumn) {
    PassLines lines = linesOf("first\n1, x, 3\n", 80, LineMode::kBinary);
    lines.next();
    lines.next();
    lines.note(LineKind::kNoted, lines.line().substr(3, 1));
    const std::string other = "x";
    lines.note(LineKind::kNoted, other);
    EXPECT_EQ(placesOf(LineKind::kNoted)[0].line, 2u);
    EXPECT_EQ(placesOf(LineKind::kNoted)[0].column, 4u);
    EXPECT_EQ(placesOf(LineKind::kNoted)[0].text(), "x");
    EXPECT_EQ(placesOf(LineKind::kNoted)[1].column, 0u);
}

TEST_F(PassLinesTest, CountsColumnsOfTheFileAcrossPiecesOfALine) {
    PassLines lines = linesOf("abcdefg\nhi\n", 4, LineMode::kBinary);
    lines.next();  // abc
    lines.next();  // def
    lines.note(LineKind::kNoted, lines.line().substr(1, 1));
    lines.next();  // g
    lines.next();  // hi
    lines.note(LineKind::kNoted, lines.line().substr(1, 1));
    EXPECT_EQ(placesOf(LineKind::kNoted)[0].line, 1u);
    EXPECT_EQ(placesOf(LineKind::kNoted)[0].column, 5u);
    EXPECT_EQ(placesOf(LineKind::kNoted)[1].line, 2u);
    EXPECT_EQ(placesOf(LineKind::kNoted)[1].column, 2u);
}

TEST_F(PassLinesTest, NotesByNameAndAtAnEarlierLine) {
    PassLines lines = linesOf("block 3\n1\n2\n", 80, LineMode::kBinary);
    lines.next();
    const LinePlace head = lines.place();
    lines.next();
    lines.noteNamed(LineKind::kNoted, "one");
    lines.note(LineKind::kNoted, lines.line().substr(0, 1), "one");
    lines.next();
    lines.noteAt(LineKind::kNoted, head, "block 3", "two");
    EXPECT_THAT(test::describe(findings_),
                testing::ElementsAre("test.noted (one) 2:0 1", "test.noted (one) 2:1 1",
                                     "test.noted (two) 1:1 block 3"));
}

TEST_F(PassLinesTest, NotesEachPieceThatIsCutOnce) {
    PassLines lines = linesOf("abcdefg\nhi\n", 4, LineMode::kBinary);
    lines.next();
    lines.giveBack();
    while (lines.next()) {
    }
    ASSERT_EQ(countOf(LineKind::kCut), 2u);
    EXPECT_EQ(placesOf(LineKind::kCut)[0].text(), "abc");
    EXPECT_EQ(placesOf(LineKind::kCut)[1].text(), "def");
    EXPECT_EQ(placesOf(LineKind::kCut)[1].line, 1u);
}

TEST_F(PassLinesTest, NotesAPieceThatIsCutAndHasWhatIsSought) {
    PassLines lines = linesOf("abcdefg\nwxyz\nw\n", 4, LineMode::kBinary);
    const auto find = [](const char* first, const char* last) {
        return std::find(first, last, 'w');
    };
    while (lines.nextWith(find)) {
    }
    ASSERT_EQ(countOf(LineKind::kCut), 1u);
    EXPECT_EQ(placesOf(LineKind::kCut)[0].line, 2u);
    EXPECT_EQ(placesOf(LineKind::kCut)[0].text(), "wxy");
}

TEST_F(PassLinesTest, CountsLinesAcrossManyBlocksAndSkippedLines) {
    constexpr std::size_t kLines = 200'000;
    std::string content;
    for (std::size_t line = 1; line <= kLines; ++line)
        content += line % 50'000 == 0 ? "wanted\r\n" : "some other line\r\n";
    PassLines lines = linesOf(content, 80, LineMode::kText);
    const auto find = [](const char* first, const char* last) {
        return std::find(first, last, 'w');
    };
    while (lines.nextWith(find))
        lines.note(LineKind::kNoted);
    ASSERT_EQ(countOf(LineKind::kNoted), 4u);
    EXPECT_EQ(placesOf(LineKind::kNoted)[0].line, 50'000u);
    EXPECT_EQ(placesOf(LineKind::kNoted)[3].line, 200'000u);
}

TEST_F(PassLinesTest, NotesNothingWhereNobodyListens) {
    listener_ = Listener{&findings_, nullptr}.withoutFindings();
    PassLines lines = linesOf("abcdefg\n", 4, LineMode::kBinary);
    while (lines.next())
        lines.note(LineKind::kNoted);
    EXPECT_EQ(countOf(LineKind::kNoted), 0u);
    EXPECT_EQ(countOf(LineKind::kCut), 0u);
}

TEST_F(PassLinesTest, TellsAHostHowFarItIsOncePerBlock) {
    std::vector<std::size_t> told;
    watch_.host = &told;
    watch_.goesOn = [](void* host, std::size_t bytes) {
        static_cast<std::vector<std::size_t>*>(host)->push_back(bytes);
        return true;
    };
    listener_ = {nullptr, &watch_};
    PassLines lines = linesOf(std::string(600'000, '\n'), 80, LineMode::kBinary);
    std::size_t count = 0;
    while (lines.next())
        ++count;
    EXPECT_EQ(count, 600'000u);
    EXPECT_EQ(told, (std::vector<std::size_t>{0, 262'144, 524'288, 600'000}));
    EXPECT_FALSE(listener_.hasStopped());
}

TEST_F(PassLinesTest, EndsAtTheBlockThatTheHostNoLongerWants) {
    watch_.goesOn = [](void*, std::size_t bytes) { return bytes == 0; };
    listener_ = {nullptr, &watch_};
    PassLines lines = linesOf(std::string(600'000, '\n'), 80, LineMode::kBinary);
    std::size_t count = 0;
    while (lines.next())
        ++count;
    EXPECT_EQ(count, 262'144u);
    EXPECT_TRUE(lines.metEnd());
    EXPECT_TRUE(listener_.hasStopped());
    // Whoever comes after it meets the end at once.
    PassLines after = linesOf("a\n", 80, LineMode::kBinary);
    EXPECT_FALSE(after.next());
}

}  // namespace
}  // namespace kvocaeio::text
