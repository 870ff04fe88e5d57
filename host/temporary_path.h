/// Files and folders that are there for a while only.
#pragma once

#include <string>

namespace kvocaeio::host {

/// A new file or folder with a name of its own, which nobody else may read. It goes away with its
/// holder, and where the program is interrupted.
class TemporaryPath {
  public:
    enum class Kind { kFile, kFolder };

    /// Makes it in `folder`, whose name ends with a separator or is empty. Throws `FileError`.
    TemporaryPath(Kind kind, const std::string& folder);
    /// Makes the file `path`.
    explicit TemporaryPath(std::string path);
    ~TemporaryPath();
    TemporaryPath(const TemporaryPath&) = delete;
    TemporaryPath& operator=(const TemporaryPath&) = delete;

    const std::string& path() const { return path_; }

  private:
    std::string path_;
};

}  // namespace kvocaeio::host
