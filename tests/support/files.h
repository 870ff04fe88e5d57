/// Folders and files that a test makes for itself.
#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace kvocaeio::test {

/// An empty folder that goes away with its holder.
class TempFolder {
  public:
    TempFolder() {
        static std::atomic<unsigned> count{0};
        const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
        path_ = std::filesystem::temp_directory_path() /
                ("kvocaeio-test-" + std::to_string(ticks) + "-" + std::to_string(count++));
        std::filesystem::create_directories(path_);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    /// Path of `name` in the folder, as the narrow text that the library takes.
    std::string file(std::string_view name) const { return (path_ / name).string(); }
    /// Makes a folder `name` in this one.
    void makeFolder(std::string_view name) const {
        std::filesystem::create_directory(path_ / name);
    }
    /// Path of `name` below folders in this one, longer than 600 characters. The folders are made,
    /// where the system can.
    std::string longPath(std::string_view name) const {
        std::filesystem::path path = path_;
        while (path.string().size() < 600)
            path /= std::string(120, 'd');
        std::error_code ignored;
        std::filesystem::create_directories(path, ignored);
        return (path / name).string();
    }
    /// Writes a file byte for byte and gives its path.
    std::string write(std::string_view name, std::string_view bytes) const {
        std::ofstream out(path_ / name, std::ios::binary);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return file(name);
    }

  private:
    std::filesystem::path path_;
};

/// All bytes of a file; empty when it cannot be read.
inline std::string readBytes(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// All bytes of a text file that the library wrote, with the platform's line ends turned into LF.
inline std::string readText(const std::filesystem::path& path) {
    std::string text = readBytes(path);
#if defined(_WIN32)
    for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; ++at)
        text.erase(at, 1);
#endif
    return text;
}

}  // namespace kvocaeio::test
