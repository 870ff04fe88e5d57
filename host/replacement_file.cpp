/// The target's checks, and the move onto it.
#include "replacement_file.h"

#include <cstdio>

#include "c_file.h"
#include "file_report.h"
#include "input_file.h"

namespace kvocaeio::host {

namespace {

std::string replaceable(const std::string& target) {
    const std::string place = followLinks(target);
    const FileKind kind = kindOf(place);
    if (kind != FileKind::kFile && kind != FileKind::kMissing)
        throw FileError("cannot be written: it is there and is no file", "cannot-be-written");
    if (kind == FileKind::kFile && !isWritable(place))
        throw FileError("cannot be written: " + systemFailure(), "cannot-be-written");
    return place;
}

}  // namespace

ReplacementFile::ReplacementFile(const std::string& target)
    : target_(replaceable(target)),
      file_(TemporaryPath::Kind::kFile, target_.substr(0, folderLength(target_))) {}

bool ReplacementFile::endsWith(std::string_view ending) const {
    const CFile file = openFile(path(), "rb");
    std::string tail(ending.size() + 4, '\0');  // with line ends of two characters
    if (!file || std::fseek(file.get(), -static_cast<long>(tail.size()), SEEK_END) != 0)
        return false;
    tail.resize(std::fread(tail.data(), 1, tail.size(), file.get()));
    return std::string_view(tail).substr(0, tail.find_last_not_of("\r\n") + 1).ends_with(ending);
}

void ReplacementFile::finish() {
    if (const std::error_code error = replaceFile(target_, path()))
        throw FileError("cannot be written: " + error.default_error_condition().message(),
                        "cannot-be-written");
}

}  // namespace kvocaeio::host
