/// Special files refused, standard input saved.
#include "input_file.h"

#include <array>
#include <cstdio>

#include "c_file.h"
#include "clean_name.h"
#include "file_report.h"

namespace kvocaeio::host {

namespace {

std::string_view nameOf(FileKind kind) {
    switch (kind) {
        case FileKind::kPipe:
            return "pipe";
        case FileKind::kSocket:
            return "socket";
        default:
            return "device";
    }
}

}  // namespace

std::string shownName(const std::string& name) {
    return name == kStandardInput ? "standard input" : cleanName(name);
}

void refuseSpecialFile(const std::string& path) {
    const FileKind kind = kindOf(path);
    if (kind == FileKind::kFolder)
        throw FileError("is a folder, not a file", "special-file");
    if (kind != FileKind::kFile && kind != FileKind::kMissing)
        throw FileError(
            "is a " + std::string(nameOf(kind)) +
                ", not a file: save its content to a file first, or send it to standard "
                "input and name - as the file",
            "special-file");
}

InputFile::InputFile(const std::string& name) : path_(name) {
    if (name == kStandardInput) {
        identity_ = identityOfStandardInput();
        saveStandardInput();
    } else {
        refuseSpecialFile(name);
        identity_ = identityOf(name);
    }
}

void InputFile::saveStandardInput() {
    folder_ = std::make_unique<TemporaryPath>(TemporaryPath::Kind::kFolder, temporaryFolder());
    file_ = std::make_unique<TemporaryPath>(folder_->path() + "/input");
    path_ = file_->path();
    const CFile file = openFile(path_, "wb");
    bool good = file != nullptr;
    makeStandardInputBinary();
    std::array<char, 65536> block;
    std::size_t size = 1;
    while (good && size != 0) {
        size = std::fread(block.data(), 1, block.size(), stdin);
        good = std::ferror(stdin) == 0 && std::fwrite(block.data(), 1, size, file.get()) == size;
    }
    if (!good || std::fflush(file.get()) != 0)
        throw FileError("cannot be saved to a temporary file: " + systemFailure());
}

}  // namespace kvocaeio::host
