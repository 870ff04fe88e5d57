/// Pieces brought to the disk.
#include "output_file.h"

#include "file_report.h"

namespace kvocaeio::host {

namespace {

void requireWritten(bool isWritten) {
    if (!isWritten)
        throw FileError("cannot be written as a whole: the disk may be full", "cannot-be-written");
}

}  // namespace

OutputFile::OutputFile(const std::string& path) : file_(openFile(path, "wb")) {
    if (!file_)
        throw FileError("cannot be written: " + systemFailure(), "cannot-be-written");
    waiting_.reserve(2 * kPiece);
}

void OutputFile::flush() {
    requireWritten(std::fwrite(waiting_.data(), 1, waiting_.size(), file_.get()) ==
                   waiting_.size());
    waiting_.clear();
}

void OutputFile::finish() {
    flush();
    requireWritten(std::fclose(file_.release()) == 0);
}

}  // namespace kvocaeio::host
