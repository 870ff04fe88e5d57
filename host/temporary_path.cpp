/// Names that nobody else has.
#include "temporary_path.h"

#include <random>
#include <utility>

#include "file_report.h"
#include "file_system.h"

namespace kvocaeio::host {

namespace {

std::string randomName() {
    constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::random_device source;
    std::uniform_int_distribution<std::size_t> letter(0, kLetters.size() - 1);
    std::string name = "kvocaeio-";
    for (int i = 0; i < 12; ++i)
        name += kLetters[letter(source)];
    return name;
}

std::error_code create(TemporaryPath::Kind kind, const std::string& path) {
    const InterruptionPause pause;
    const std::error_code error =
        kind == TemporaryPath::Kind::kFile ? createFile(path) : createFolder(path);
    if (!error)
        removeOnInterruption(path);
    return error;
}

}  // namespace

TemporaryPath::TemporaryPath(Kind kind, const std::string& folder) {
    constexpr int kTries = 100;
    std::error_code error = std::make_error_code(std::errc::file_exists);
    for (int i = 0; i < kTries && error == std::errc::file_exists; ++i) {
        path_ = folder + randomName() + (kind == Kind::kFile ? ".part" : "");
        error = create(kind, path_);
    }
    if (error)
        throw FileError("cannot be written: " + error.default_error_condition().message(),
                        "cannot-be-written");
}

TemporaryPath::TemporaryPath(std::string path) : path_(std::move(path)) {
    if (const std::error_code error = create(Kind::kFile, path_))
        throw FileError("cannot be written: " + error.default_error_condition().message(),
                        "cannot-be-written");
}

TemporaryPath::~TemporaryPath() {
    removePath(path_);
    keepOnInterruption(path_);
}

}  // namespace kvocaeio::host
