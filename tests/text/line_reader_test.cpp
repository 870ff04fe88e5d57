/// Facts of the bounded lines.
#include "text/line_reader.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "support/descriptors.h"
#include "support/failing_reads.h"
#include "support/files.h"
#include "support/findings.h"
#include "text/file.h"
#include "text/pass_lines.h"

namespace kvocaeio::text {
namespace {

using namespace std::string_view_literals;

constexpr std::size_t kBlockSize = std::size_t{1} << 18;

class LineReaderTest : public testing::Test {
  protected:
    // A reader of a file of these bytes.
    LineReader& open(std::string_view bytes, LineMode mode = LineMode::kBinary,
                     std::size_t bound = 512) {
        file_ = openFile(folder_.write("file", bytes).c_str(), "rb");
        return reader_.emplace_back(file_.get(), bound, mode);
    }

    std::vector<std::string> linesOf(std::string_view bytes, LineMode mode = LineMode::kBinary,
                                     std::size_t bound = 512) {
        LineReader& reader = open(bytes, mode, bound);
        std::vector<std::string> lines;
        while (reader.next())
            lines.emplace_back(reader.line());
        return lines;
    }

  private:
    test::TempFolder folder_;
    File file_;
    std::vector<LineReader> reader_;
};

using Lines = std::vector<std::string>;

TEST_F(LineReaderTest, EmptyFileHasNoLine) {
    LineReader& reader = open("");
    EXPECT_FALSE(reader.next());
    EXPECT_EQ(reader.line(), "");
    EXPECT_FALSE(reader.endsLine());
    EXPECT_FALSE(reader.next());
}

TEST_F(LineReaderTest, LinesComeWithTheirLineFeed) {
    EXPECT_EQ(linesOf("a\n\nbc\n"), (Lines{"a\n", "\n", "bc\n"}));
}

TEST_F(LineReaderTest, LastLineMayLackItsLineFeed) {
    LineReader& reader = open("a\nb");
    EXPECT_TRUE(reader.next());
    EXPECT_TRUE(reader.endsLine());
    EXPECT_TRUE(reader.next());
    EXPECT_EQ(reader.line(), "b");
    EXPECT_FALSE(reader.endsLine());
    EXPECT_FALSE(reader.next());
}

TEST_F(LineReaderTest, BoundCutsALongLineIntoPieces) {
    EXPECT_EQ(linesOf("abcdefgh\nij\n", LineMode::kBinary, 5),
              (Lines{"abcd", "efgh", "\n", "ij\n"}));
}

TEST_F(LineReaderTest, LineOfTheBoundIsOnePiece) {
    EXPECT_EQ(linesOf("abc\nd\n", LineMode::kBinary, 5), (Lines{"abc\n", "d\n"}));
}

TEST_F(LineReaderTest, PieceDoesNotEndALine) {
    LineReader& reader = open("abcdef\n", LineMode::kBinary, 5);
    EXPECT_TRUE(reader.next());
    EXPECT_FALSE(reader.endsLine());
    EXPECT_TRUE(reader.next());
    EXPECT_EQ(reader.line(), "ef\n");
    EXPECT_TRUE(reader.endsLine());
}

TEST_F(LineReaderTest, LineIsSeenUpToItsFirstNul) {
    LineReader& reader = open("ab\0cd\nef\n"sv);
    EXPECT_TRUE(reader.next());
    EXPECT_EQ(reader.line(), "ab");
    EXPECT_TRUE(reader.endsLine());
    EXPECT_TRUE(reader.next());
    EXPECT_EQ(reader.line(), "ef\n");
    EXPECT_FALSE(reader.next());
}

TEST_F(LineReaderTest, LineStaysAfterTheEnd) {
    LineReader& reader = open("a\nlast\n");
    while (reader.next()) {
    }
    EXPECT_EQ(reader.line(), "last\n");
    EXPECT_FALSE(reader.next());
    EXPECT_EQ(reader.line(), "last\n");
}

TEST_F(LineReaderTest, LineGivenBackComesAgain) {
    LineReader& reader = open("a\nb\nc");
    EXPECT_TRUE(reader.next());
    EXPECT_TRUE(reader.next());
    reader.giveBack();
    EXPECT_TRUE(reader.next());
    EXPECT_EQ(reader.line(), "b\n");
    EXPECT_TRUE(reader.next());
    EXPECT_EQ(reader.line(), "c");
    reader.giveBack();
    EXPECT_TRUE(reader.next());
    EXPECT_EQ(reader.line(), "c");
    EXPECT_FALSE(reader.next());
}

TEST_F(LineReaderTest, LineGivenBackAtABlockBorderComesAgain) {
    const std::string first(kBlockSize - 2, '\n');
    LineReader& reader = open(first + "abcdef\nlast\n");
    for (std::size_t i = 0; i < first.size(); ++i)
        ASSERT_TRUE(reader.next());
    for (int times = 0; times < 3; ++times) {
        EXPECT_TRUE(reader.next());
        EXPECT_EQ(reader.line(), "abcdef\n");
        reader.giveBack();
    }
    EXPECT_TRUE(reader.next());
    EXPECT_TRUE(reader.next());
    EXPECT_EQ(reader.line(), "last\n");
}

TEST_F(LineReaderTest, BinaryModeLeavesTheBytesAlone) {
    EXPECT_EQ(linesOf("a\r\nb\x1A\rc\n"), (Lines{"a\r\n", "b\x1A\rc\n"}));
}

TEST_F(LineReaderTest, TextModeTurnsCrLfIntoLf) {
    EXPECT_EQ(linesOf("a\r\n\r\nb\r\n", LineMode::kText), (Lines{"a\n", "\n", "b\n"}));
}

TEST_F(LineReaderTest, TextModeKeepsALoneCr) {
    EXPECT_EQ(linesOf("a\rb\r\r\nc\r", LineMode::kText), (Lines{"a\rb\r\n", "c\r"}));
}

TEST_F(LineReaderTest, TextModeEndsAtControlZ) {
    EXPECT_EQ(linesOf("a\r\nb\x1A\nc\n", LineMode::kText), (Lines{"a\n", "b"}));
    EXPECT_EQ(linesOf("a\r\x1A\nc\n", LineMode::kText), (Lines{"a\r"}));
    EXPECT_EQ(linesOf("\x1A-\n", LineMode::kText), Lines{});
}

TEST_F(LineReaderTest, TextModeCountsTheBoundWithoutTheCr) {
    EXPECT_EQ(linesOf("abc\r\nd\n", LineMode::kText, 5), (Lines{"abc\n", "d\n"}));
}

TEST_F(LineReaderTest, CrAtABlockBorderWaitsForTheNextByte) {
    const std::string empty(kBlockSize - 2, '\n');
    for (const auto& [behind, expected] : {std::pair{"a\r\nb\n", Lines{"a\n", "b\n"}},
                                           {"a\rb\n", {"a\rb\n"}},
                                           {"a\r", {"a\r"}},
                                           {"a\r\r\nb", {"a\r\n", "b"}},
                                           {"a\r\x1A\n", {"a\r"}}}) {
        LineReader& reader = open(empty + behind, LineMode::kText);
        for (std::size_t i = 0; i < empty.size(); ++i)
            ASSERT_TRUE(reader.next());
        Lines lines;
        while (reader.next())
            lines.emplace_back(reader.line());
        EXPECT_EQ(lines, expected);
    }
}

TEST_F(LineReaderTest, StartsWhereTheFileStands) {
    const test::TempFolder folder;
    const File file = openFile(folder.write("file", "abc\ndef\n").c_str(), "rb");
    std::fseek(file.get(), 4, SEEK_SET);
    LineReader reader(file.get(), 512, LineMode::kBinary);
    EXPECT_TRUE(reader.next());
    EXPECT_EQ(reader.line(), "def\n");
}

TEST_F(LineReaderTest, FailureToReadIsTheEnd) {
    const test::TempFolder folder;
    const File file = openFile(folder.file("file").c_str(), "wb");  // cannot be read
    LineReader reader(file.get(), 512, LineMode::kBinary);
    EXPECT_FALSE(reader.next());
}

TEST_F(LineReaderTest, RemembersThatReadingFailed) {
    LineReader& sound = open("a\nb");
    while (sound.next()) {
    }
    EXPECT_FALSE(sound.hasFailed());
    const test::TempFolder folder;
    std::string lines;
    while (lines.size() < 2 * kBlockSize)
        lines += "fifteen letters\n";
    const std::string path = folder.write("lines", lines);
    test::FailingReads failing(2);
    const File file = openFile(path.c_str(), "rb");
    LineReader reader(file.get(), 512, LineMode::kBinary, &failing.watch);
    for (int line = 0; line < 16'384; ++line)
        ASSERT_TRUE(reader.next()) << line;
    EXPECT_FALSE(reader.hasFailed());
    EXPECT_FALSE(reader.next());
    EXPECT_TRUE(reader.metEnd());
    EXPECT_TRUE(reader.hasFailed());
    Findings findings;
    std::clearerr(file.get());
    PassLines again(file.get(), 512, LineMode::kBinary, {&findings, nullptr},
                    FileFinding::kReadError);
    EXPECT_FALSE(again.next());
    EXPECT_FALSE(again.next());
    EXPECT_TRUE(again.hasFailed());
    EXPECT_EQ(test::countOf(findings, FileFinding::kReadError), 1U);
}

}  // namespace
}  // namespace kvocaeio::text
