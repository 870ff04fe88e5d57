/// Bounded lines of a file, delivered as `fgets` with the same bound would, over block reads.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

#include "text/findings.h"

namespace kvocaeio::text {

/// What arrives of the file's bytes. Binary: all of them as they are. Text: CR LF arrives as a
/// single LF, a lone CR stays, and a byte 0x1A ends the file, on every platform alike. Returns:
/// each CR arrives as an LF, for files in which lines end in CR alone.
enum class LineMode { kBinary, kText, kReturns };

/// A place in a file, in lines of the file and not in pieces of them; both numbers count from 1.
struct LinePlace {
    std::size_t line = 0;
    std::size_t column = 0;
    bool operator==(const LinePlace&) const = default;
};

/// Reads a file from its present position to its end, one bounded line at a time. Memory is one
/// block, whatever the file's size. The stream is borrowed and must not be used by others
/// meanwhile; it should be open in binary mode, since the reader does the text mode's work itself.
class LineReader {
  public:
    /// `bound` is that of `fgets`: a line has at most `bound` - 1 characters, its LF included, and
    /// the rest of a longer one arrives as the next line.
    /// `watch` may be null; it is asked before each block.
    LineReader(std::FILE* file, std::size_t bound, LineMode mode, Watch* watch = nullptr);

    // A copy would point into the first one's block.
    LineReader(LineReader&&) = default;
    LineReader& operator=(LineReader&&) = default;

    /// Another bound for the lines taken from now on, at the most the constructor's.
    void setBound(std::size_t bound) { maxLength_ = bound - 1; }

    /// Takes the next line. False at the end of the file, or where reading fails: `line()` then
    /// still gives the line before, as the buffer of `fgets` would.
    bool next() {
        const std::size_t reach = std::min(static_cast<std::size_t>(end_ - position_), maxLength_);
        const void* lineFeed = reach == 0 ? nullptr : std::memchr(position_, '\n', reach);
        if (lineFeed == nullptr)
            return nextAcrossBlocks();
        deliver(static_cast<const char*>(lineFeed) + 1);
        return true;
    }

    /// Takes the next line in which `find` finds something, without a look at the line ends before
    /// it. `find(first, last)` gives the first place that it seeks in a text, or `last`. False
    /// where no further line has it.
    template <class Find>
    bool nextWith(const Find& find) {
        while (next()) {
            if (find(line_, line_ + length_) != line_ + length_)
                return true;
            // What is found here may be cut by a line's bound or stand behind a NUL, and the end of
            // the block may cut what is complete in the file: the line decides.
            passOver(find(position_, end_));
        }
        return false;
    }

    /// The line taken last, with its LF where it has one, up to its first NUL: what the C library's
    /// string functions would see of it. Valid until the next call of `next()`.
    std::string_view line() const { return {line_, length_}; }

    /// Whether the line taken last ends a line of the file. False for a piece that the bound cut
    /// off and for a last line without LF.
    bool endsLine() const { return position_ != line_ && position_[-1] == '\n'; }

    /// Whether the line taken last is a piece that the bound cut off.
    bool isCut() const {
        return static_cast<std::size_t>(position_ - line_) == maxLength_ && !endsLine();
    }

    /// Whether the line taken last goes on after a NUL, where `line()` ends.
    bool isCutAtNul() const { return line_ + length_ != position_; }

    /// Whether the end of a text file that has been met is a byte 0x1A with more than white space
    /// after it.
    bool isEndedByMark() const { return isEndedByMark_; }

    /// Lines are counted from here on, block by block, so that `place()` can tell. To be called
    /// before the first line is taken; it costs about a hundredth of a pass.
    void countLines() { countsLines_ = true; }

    /// Where the line taken last begins.
    LinePlace place() {
        countTo(line_);
        return {lineFeeds_ + 1, charactersBefore_ + 1};
    }

    /// Whether the end of the file is known, as `feof` knows it: a read has met it, that of a last
    /// line without LF included. Not yet where the last line ended in LF or at its bound.
    bool metEnd() const { return metEnd_; }

    /// The line taken last will be taken again by the next call of `next()`.
    void giveBack() { position_ = line_; }

    /// Whether reading has failed. The lines end there as they do at the end of the file.
    bool hasFailed() const { return failure_ != 0; }

    /// Why, as `errno` says; 0 where reading has not failed.
    int failure() const { return failure_; }

  private:
    void deliver(const char* lineEnd) {
        line_ = position_;
        position_ = lineEnd;
        length_ = static_cast<std::size_t>(lineEnd - line_);
        if (holdsNul_)
            cutAtNul();
    }
    void passOver(const char* place);
    void cutAtNul();
    bool nextAcrossBlocks();
    bool fill();
    bool goesOn();
    char* translateText(char* first, char* last);
    void countTo(const char* place);

    std::FILE* file_;
    std::size_t maxLength_;
    LineMode mode_;
    std::unique_ptr<char[]> buffer_;
    const char* line_;      // the line taken last
    std::size_t length_;    // of that line, up to its first NUL
    const char* position_;  // behind that line
    const char* end_;       // behind the last byte read
    bool heldCr_ = false;   // text mode: a CR at `end_`, whose meaning the next byte decides
    bool holdsNul_ = false;
    bool isEndedByMark_ = false;
    bool atEnd_ = false;  // nothing more will come of the file
    int failure_ = 0;
    bool metEnd_ = false;  // a line has been asked for that would need more
    Watch* watch_;
    std::size_t bytesRead_ = 0;
    // Of the text before `counted_`, while lines are counted.
    bool countsLines_ = false;
    const char* counted_;
    std::size_t lineFeeds_ = 0;
    std::size_t charactersBefore_ = 0;  // on its last, incomplete line
};

}  // namespace kvocaeio::text
