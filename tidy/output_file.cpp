/// The file beside the target, and its way onto it.
#include "tidy/output_file.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <system_error>
#include <utility>

namespace kvocaeio::tidy {

namespace {

namespace fs = std::filesystem;

std::string uniqueName() {
    constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::random_device source;
    std::uniform_int_distribution<std::size_t> letter(0, kLetters.size() - 1);
    std::string name = "kvocaeio-";
    for (int i = 0; i < 12; ++i)
        name += kLetters[letter(source)];
    return name + ".part";
}

std::error_code lastError() {
    return {errno == 0 ? EIO : errno, std::generic_category()};
}

// Follows links, which a file that is moved onto one would replace.
fs::path followLinks(fs::path path) {
    constexpr int kMostLinks = 40;
    std::error_code error;
    for (int i = 0; i < kMostLinks && fs::is_symlink(path, error); ++i) {
        const fs::path to = fs::read_symlink(path, error);
        if (error)
            break;
        path = path.parent_path() / to;
    }
    return path;
}

}  // namespace

OutputFile::~OutputFile() {
    writer_.reset();
    file_.reset();
    if (!path_.empty())
        text::deleteFile(path_.c_str());
}

bool OutputFile::fail(std::error_code error) {
    error_ = error;
    return false;
}

bool OutputFile::open(const fs::path& target, text::LineEnds lineEnds) {
    target_ = followLinks(target);
    std::error_code error;
    const fs::file_status status = fs::status(target_, error);
    if (fs::is_directory(status))
        return fail(std::make_error_code(std::errc::is_a_directory));
    if (fs::exists(status) && !fs::is_regular_file(status))
        return fail(std::make_error_code(std::errc::operation_not_permitted));
    return create(lineEnds);
}

bool OutputFile::create(text::LineEnds lineEnds) {
    constexpr int kTries = 100;
    for (int i = 0; i < kTries; ++i) {
        fs::path path = target_.parent_path() / uniqueName();
        errno = 0;
        file_ = text::createFile(path, lineEnds);
        if (file_ != nullptr) {
            path_ = std::move(path);  // a copy might find no memory
            writer_.emplace(file_.get());
            return true;
        }
        if (errno != EEXIST)
            break;
    }
    return fail(lastError());
}

bool OutputFile::copy(const fs::path& file) {
    if (path_.empty())
        return true;
    constexpr std::size_t kBlock = std::size_t{1} << 18;
    const auto block = std::make_unique_for_overwrite<char[]>(kBlock);
    errno = 0;
    const text::File from = text::openFile(file.c_str(), "rb");
    const std::uintmax_t size = from == nullptr ? 0 : fs::file_size(file, error_);
    if (error_ || from == nullptr || !text::reserveFile(file_.get(), size))
        return error_ ? false : fail(lastError());
    std::uintmax_t copied = 0;
    while (const std::size_t count = std::fread(block.get(), 1, kBlock, from.get())) {
        if (std::fwrite(block.get(), 1, count, file_.get()) != count)
            return fail(lastError());
        copied += count;
    }
    // A file that has changed meanwhile would not be copied whole, or be longer than what is there.
    return copied == size || fail(lastError());
}

bool OutputFile::finish() {
    if (path_.empty())
        return true;
    if (writer_) {
        errno = 0;
        const bool isWritten = writer_->flush();
        writer_.reset();
        if (std::fclose(file_.release()) != 0 || !isWritten)
            return fail(lastError());
    }
    fs::rename(path_, target_, error_);
    if (error_)
        return false;
    path_.clear();
    return true;
}

}  // namespace kvocaeio::tidy
