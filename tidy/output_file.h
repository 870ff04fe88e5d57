/// A file that is written completely or not at all.
#pragma once

#include <cstdio>
#include <filesystem>
#include <optional>
#include <string_view>

#include "text/file.h"
#include "text/format.h"
#include "text/platform.h"

namespace kvocaeio::tidy {

/// Writes to a file of its own beside the target, under a name that nobody else has, and moves it
/// onto the target at the end. Without that end the file goes away, and the target is as it was.
class OutputFile {
  public:
    /// Makes one that drops what is written, for a deck that is only examined.
    OutputFile() = default;
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Creates the file beside `target`; where that is a link, beside what it leads to. Whatever is
    /// at `target` must be a regular file. False on failure; then `error()` says why.
    bool open(const std::filesystem::path& target,
              text::LineEnds lineEnds = text::LineEnds::kAsWritten);

    /// What writes to the file; there is one from `open` to `copy` or `finish`.
    text::Writer& writer() { return *writer_; }
    /// Writes `value`. Errors of the disk show in `finish`.
    OutputFile& text(std::string_view value) {
        if (writer_)
            writer_->text(value);
        return *this;
    }

    /// Becomes a copy of `file`; nothing must have been written. False on failure.
    bool copy(const std::filesystem::path& file);

    /// Closes the file and moves it onto the target. False, with the target as it was, where the
    /// disk did not take all of it. True without a file.
    bool finish();

    /// The system's error of the last failure.
    std::error_code error() const { return error_; }

  private:
    bool create(text::LineEnds lineEnds);
    bool fail(std::error_code error);

    std::filesystem::path target_;
    std::filesystem::path path_;  // empty as long as there is none
    text::File file_;
    std::optional<text::Writer> writer_;  // goes away before the stream
    std::error_code error_;
};

}  // namespace kvocaeio::tidy
