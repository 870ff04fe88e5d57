/// Folders and files that a test makes for itself.
#include "support/files.h"

#include <atomic>
#include <chrono>
#include <fstream>
#include <iterator>

namespace kvocaeio::test {

TempFolder::TempFolder() {
    static std::atomic<unsigned> count{0};
    const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
    path_ = std::filesystem::temp_directory_path() /
            ("kvocaeio-test-" + std::to_string(ticks) + "-" + std::to_string(count++));
    std::filesystem::create_directories(path_);
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string TempFolder::file(std::string_view name) const {
    return (path_ / name).string();
}

void TempFolder::makeFolder(std::string_view name) const {
    std::filesystem::create_directory(path_ / name);
}

std::string TempFolder::longPath(std::string_view name) const {
    std::filesystem::path path = path_;
    while (path.string().size() < 600)
        path /= std::string(120, 'd');
    std::error_code ignored;
    std::filesystem::create_directories(path, ignored);
    return (path / name).string();
}

std::string TempFolder::write(std::string_view name, std::string_view bytes) const {
    std::ofstream out(path_ / name, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return file(name);
}

std::string readBytes(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string readText(const std::filesystem::path& path) {
    std::string text = readBytes(path);
#if defined(_WIN32)
    for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; ++at)
        text.erase(at, 1);
#endif
    return text;
}

}  // namespace kvocaeio::test
