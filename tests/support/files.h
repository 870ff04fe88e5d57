/// Folders and files that a test makes for itself.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kvocaeio::test {

/// An empty folder that goes away with its holder.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    /// Path of `name` in the folder, as the narrow text that the library takes.
    std::string file(std::string_view name) const;
    /// Makes a folder `name` in this one.
    void makeFolder(std::string_view name) const;
    /// Path of `name` below folders in this one, longer than 600 characters. The folders are made,
    /// where the system can.
    std::string longPath(std::string_view name) const;
    /// Writes a file byte for byte and returns its path.
    std::string write(std::string_view name, std::string_view bytes) const;

  private:
    std::filesystem::path path_;
};

/// All bytes of a file; empty when it cannot be read.
std::string readBytes(const std::filesystem::path& path);

/// All bytes of a text file that the library wrote, with the platform's line ends turned into LF.
std::string readText(const std::filesystem::path& path);

}  // namespace kvocaeio::test
