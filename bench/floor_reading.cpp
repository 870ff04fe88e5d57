/// A file in blocks of whole lines.
#include "bench/floor_reading.h"

#include <string_view>

namespace kvocaeio::bench {

namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 18;

}  // namespace

LineBlocks::LineBlocks(std::FILE* file) : file_(file), buffer_(kBlockSize + 1) {
    std::setvbuf(file, nullptr, _IONBF, 0);
}

bool LineBlocks::next(const char*& first, const char*& last) {
    std::memmove(buffer_.data(), buffer_.data() + taken_, size_ - taken_);
    size_ -= taken_;
    for (;;) {
        const std::size_t count =
            std::fread(buffer_.data() + size_, 1, buffer_.size() - 1 - size_, file_);
        const bool atEnd = count == 0;
        size_ += count;
        if (atEnd && size_ > 0 && buffer_[size_ - 1] != '\n')
            buffer_[size_++] = '\n';
        const std::size_t lineFeed = std::string_view(buffer_.data(), size_).rfind('\n');
        taken_ = lineFeed + 1;
        if (lineFeed != std::string_view::npos)
            break;
        if (atEnd)
            return false;
        buffer_.resize(2 * buffer_.size());
    }
    first = buffer_.data();
    last = first + taken_;
    return true;
}

}  // namespace kvocaeio::bench
