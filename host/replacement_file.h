/// Files that are written.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "file_system.h"
#include "temporary_path.h"

namespace kvocaeio::host {

/// A file that takes the place of another once it is complete, and goes away if that never happens.
/// Where the target is a link, what it leads to is replaced.
class ReplacementFile {
  public:
    /// Throws `FileError` where `target` cannot be replaced, as for special files.
    explicit ReplacementFile(const std::string& target);

    const std::string& path() const { return file_.path(); }

    /// Whether the file ends with `ending`, line ends aside: the library's writers do not tell
    /// whether the disk took everything, but they write nothing more once it did not.
    bool endsWith(std::string_view ending) const;

    /// Puts the file in its place. Throws `FileError`.
    void finish();

  private:
    std::string target_;
    TemporaryPath file_;
};

}  // namespace kvocaeio::host
