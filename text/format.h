/// Text output formatted as the `printf` formats of the writers and dumps, in the C locale whatever
/// the host's.
#pragma once

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

namespace kvocaeio::text {

/// Formats into a buffer of its own and writes that to a stream block by block. The stream is
/// borrowed; line ends are the stream's own affair, so it should be open in text mode where the
/// file is to have the platform's. Once a write fails nothing more is written.
class Writer {
  public:
    /// More decimals than this are not written.
    static constexpr int kMaxDecimals = 64;

    explicit Writer(std::FILE* file);
    /// Flushes.
    ~Writer() { flush(); }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    /// The text as it stands: "%s".
    Writer& text(std::string_view value) {
        if (value.size() > room())
            return longText(value);
        std::memcpy(position_, value.data(), value.size());
        position_ += value.size();
        return *this;
    }
    /// One character: "%c".
    Writer& character(char value) {
        if (room() == 0)
            drain();
        *position_++ = value;
        return *this;
    }
    /// "%d", with a width "%8d": filled with blanks in front; a longer number widens its field.
    Writer& integer(int value, int width = 0);
    /// "%f" with six decimals, or "%8.3f". Infinity and NaN are written "inf" and "nan", with their
    /// sign where it is negative.
    Writer& fixed(double value, int decimals = 6, int width = 0);
    /// "%E" with six decimals and at least two exponent digits on every platform, or "%16E".
    Writer& scientific(double value, int width = 0);

    /// Hands what is buffered to the stream and flushes it. True when all that was written so far
    /// has reached it.
    bool flush() noexcept;

  private:
    static constexpr std::size_t kCapacity = std::size_t{1} << 16;

    Writer& field(std::string_view value, int width);
    Writer& field(const char* first, const char* last, int width);
    Writer& longText(std::string_view value);
    std::size_t room() const {
        return static_cast<std::size_t>(buffer_.get() + kCapacity - position_);
    }
    void drain() noexcept;

    std::FILE* file_;
    std::unique_ptr<char[]> buffer_;
    char* position_;
    bool failed_ = false;
};

}  // namespace kvocaeio::text
