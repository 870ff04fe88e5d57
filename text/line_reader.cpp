/// Block reads behind the bounded lines, and the text mode's line ends.
#include "text/line_reader.h"

#include <cassert>
#include <cerrno>
#include <cstddef>
#include <cstdint>

#include "text/file.h"

namespace kvocaeio::text {

namespace {

// Large enough that system calls do not count, small enough to stay in the second-level cache.
constexpr std::size_t kBlockSize = std::size_t{1} << 18;
constexpr char kEndOfTextFile = '\x1A';

// As `std::count`, but with sums of one byte, which many characters at once can be added to; a run
// of 128 cannot overflow them.
std::size_t countLineFeeds(const char* first, const char* last) {
    constexpr std::ptrdiff_t kRun = 128;
    std::size_t count = 0;
    while (first != last) {
        const char* const end = last - first < kRun ? last : first + kRun;
        std::uint8_t found = 0;
        for (; first != end; ++first)
            found = static_cast<std::uint8_t>(found + (*first == '\n' ? 1 : 0));
        count += found;
    }
    return count;
}

}  // namespace

LineReader::LineReader(std::FILE* file, std::size_t bound, LineMode mode, Watch* watch)
    : file_(file),
      maxLength_(bound - 1),
      mode_(mode),
      // The line taken last and one that is still incomplete stand before the bytes of a block; one
      // more place keeps a held CR.
      buffer_(std::make_unique_for_overwrite<char[]>(2 * maxLength_ + kBlockSize + 1)),
      line_(buffer_.get()),
      length_(0),
      position_(line_),
      end_(line_),
      watch_(watch),
      counted_(line_) {
    assert(bound > 1);
}

// Passes over all lines before the one that `place` stands in; over all complete ones where it is
// the end of the block.
void LineReader::passOver(const char* place) {
    const char* start = place;
    while (start != position_ && start[-1] != '\n')
        --start;
    const auto ahead = static_cast<std::size_t>(place - start);
    line_ = position_ = start + ahead / maxLength_ * maxLength_;
    length_ = 0;
}

void LineReader::cutAtNul() {
    if (const void* nul = std::memchr(line_, '\0', length_))
        length_ = static_cast<std::size_t>(static_cast<const char*>(nul) - line_);
}

bool LineReader::nextAcrossBlocks() {
    for (;;) {
        const std::size_t reach = std::min(static_cast<std::size_t>(end_ - position_), maxLength_);
        if (reach > 0) {
            if (const void* lineFeed = std::memchr(position_, '\n', reach)) {
                deliver(static_cast<const char*>(lineFeed) + 1);
                return true;
            }
        }
        if (reach == maxLength_ || (atEnd_ && reach > 0)) {
            metEnd_ = reach != maxLength_;
            deliver(position_ + reach);
            return true;
        }
        if (atEnd_) {
            metEnd_ = true;
            return false;
        }
        atEnd_ = !fill();
    }
}

// Reads one more block behind what is still needed: the line taken last and the bytes not taken
// yet. False when the file has ended.
bool LineReader::fill() {
    if (countsLines_)
        countTo(line_);
    char* const start = buffer_.get();
    counted_ = start;
    const auto kept = static_cast<std::size_t>(end_ - line_);
    const auto taken = static_cast<std::size_t>(position_ - line_);
    std::memmove(start, line_, kept);
    line_ = start;
    position_ = start + taken;
    char* const first = start + kept;
    if (heldCr_)
        *first = '\r';
    char* const fresh = first + (heldCr_ ? 1 : 0);
    const std::size_t count = goesOn() ? std::fread(fresh, 1, kBlockSize, file_) : 0;
    bytesRead_ += count;
    if (std::ferror(file_) != 0 && failure_ == 0)
        failure_ = errno != 0 ? errno : EIO;
    char* last = fresh + count;
    if (mode_ == LineMode::kText)
        last = translateText(first, last);
    else if (mode_ == LineMode::kReturns)
        std::replace(first, last, '\r', '\n');
    end_ = last;
    holdsNul_ = std::memchr(start, '\0', static_cast<std::size_t>(end_ - start)) != nullptr;
    if (atEnd_ || count == 0) {
        if (heldCr_) {  // nothing follows it, so it was a lone one
            heldCr_ = false;
            ++end_;
        }
        return false;
    }
    return true;
}

bool LineReader::goesOn() {
    if (watch_ == nullptr)
        return true;
    if (!watch_->stopped)
        watch_->stopped = !watch_->goesOn(watch_->host, bytesRead_);
    return !watch_->stopped;
}

void LineReader::countTo(const char* place) {
    const std::size_t lineFeeds = countLineFeeds(counted_, place);
    if (lineFeeds > 0) {
        lineFeeds_ += lineFeeds;
        charactersBefore_ = 0;
        counted_ = place;
        while (counted_[-1] != '\n')
            --counted_;
    }
    charactersBefore_ += static_cast<std::size_t>(place - counted_);
    counted_ = place;
}

// Turns CR LF into LF in place and ends the file at 0x1A. Gives the new end; a CR at the very end
// is left behind it and held.
char* LineReader::translateText(char* first, char* last) {
    const auto size = static_cast<std::size_t>(last - first);
    heldCr_ = false;
    if (size == 0)
        return last;
    if (void* stop = std::memchr(first, kEndOfTextFile, size)) {
        isEndedByMark_ = std::any_of(static_cast<char*>(stop), last, [](char c) {
            return c != kEndOfTextFile && static_cast<unsigned char>(c) > ' ';
        });
        last = static_cast<char*>(stop);
        atEnd_ = true;
    }
    char* to = static_cast<char*>(std::memchr(first, '\r', static_cast<std::size_t>(last - first)));
    if (to == nullptr)
        return last;
    for (const char* from = to; from != last; ++from) {
        if (*from == '\r') {
            if (from + 1 == last) {
                *to = '\r';
                heldCr_ = true;
                break;
            }
            if (from[1] == '\n')
                continue;
        }
        *to++ = *from;
    }
    return to;
}

}  // namespace kvocaeio::text
