/// Files that the host writes by itself.
#pragma once

#include <concepts>
#include <string>
#include <string_view>

#include "c_file.h"

namespace kvocaeio::host {

/// A file that is written from its beginning, in large pieces.
class OutputFile {
  public:
    /// Throws `FileError` where `path` cannot be opened, as the other members do where the disk
    /// does not take what is written.
    explicit OutputFile(const std::string& path);

    OutputFile& operator<<(std::string_view text) {
        waiting_ += text;
        if (waiting_.size() >= kPiece)
            flush();
        return *this;
    }
    OutputFile& operator<<(std::integral auto number) { return *this << std::to_string(number); }

    /// Writes what waits and closes the file.
    void finish();

  private:
    static constexpr std::size_t kPiece = std::size_t{1} << 20;

    void flush();

    CFile file_;
    std::string waiting_;
};

}  // namespace kvocaeio::host
