/// Text output formatted as the `printf` formats of the writers and dumps, in the C locale whatever
/// the host's.
#pragma once

#include <cstdio>
#include <memory>
#include <string_view>

namespace kvocaeio::text {

/// Formats into a buffer of its own and writes that to a stream block by block. The stream is
/// borrowed; line ends are the stream's own affair, so it should be open in text mode where the file
/// is to have the platform's. Once a write fails nothing more is written.
class Writer {
  public:
    explicit Writer(std::FILE* file);
    /// Flushes.
    ~Writer();
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    /// The text as it stands: "%s".
    Writer& text(std::string_view value);
    /// One character: "%c".
    Writer& character(char value);
    /// "%d", with a width "%8d": filled with blanks in front; a longer number widens its field.
    Writer& integer(int value, int width = 0);
    /// "%f" with six decimals, or "%8.3f".
    Writer& fixed(double value, int decimals = 6, int width = 0);
    /// "%E" with six decimals and at least two exponent digits on every platform, or "%16E".
    Writer& scientific(double value, int width = 0);

    /// Hands what is buffered to the stream and flushes it. True when all that was written so far
    /// has reached it.
    bool flush();

  private:
    static constexpr std::size_t kCapacity = std::size_t{1} << 16;
    void makeRoom(std::size_t size);
    void drain();

    std::FILE* file_;
    std::unique_ptr<char[]> buffer_;
    char* position_;
    bool failed_ = false;
};

}  // namespace kvocaeio::text
