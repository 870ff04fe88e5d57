/// The stack of files, and what keeps it bounded.
#include "tidy/source_files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <functional>
#include <system_error>
#include <utility>

#include "text/listened_file.h"
#include "tidy/include_path.h"

namespace kvocaeio::tidy {

namespace {

namespace fs = std::filesystem;

// Of the pieces in which lines are read.
constexpr std::size_t kPiece = std::size_t{1} << 16;

// Whether lines end in carriage returns alone, as the first ones tell. The stream is at its
// beginning again.
bool isOfReturns(std::FILE* stream) {
    std::array<char, 4096> beginning;
    const std::size_t size = std::fread(beginning.data(), 1, beginning.size(), stream);
    text::rewindFile(stream);
    const std::string_view text(beginning.data(), size);
    return text.find('\r') != std::string_view::npos && text.find('\n') == std::string_view::npos;
}

bool areSame(const fs::path& a, const fs::path& b) {
    std::error_code error;
    return fs::equivalent(a, b, error) && !error;
}

}  // namespace

SourceFiles::SourceFiles(const Deck& deck, const text::Listener& listener)
    : deck_(deck), listener_(listener) {}

bool SourceFiles::open() {
    errno = 0;
    text::File stream = text::openFile(deck_.path.c_str(), "rb");
    if (stream == nullptr) {
        if (listener_.findings != nullptr) {
            listener_.findings->beginFile(deck_.name);
            text::noteFailure(*listener_.findings, text::FileFinding::kCannotOpen, errno, 0,
                              "it is not a regular file");
        }
        return false;
    }
    push(rowOfFile(deck_.path, deck_.name), std::move(stream));
    return true;
}

// The system is asked once for each path: a deck may include a file many times.
std::uint32_t SourceFiles::rowOfFile(const fs::path& path, std::string name) {
    const auto [place, isNew] =
        rows_.try_emplace(path.native(), static_cast<std::uint32_t>(known_.size()));
    if (!isNew)
        return place->second;
    const auto known = std::ranges::find_if(
        known_, [&](const KnownFile& other) { return areSame(other.path, path); });
    place->second = static_cast<std::uint32_t>(known - known_.begin());
    if (known == known_.end()) {
        std::error_code error;
        known_.push_back({path, std::move(name), fs::file_size(path, error),
                          isOutside(path, deck_.path.parent_path())});
    }
    return place->second;
}

void SourceFiles::push(std::uint32_t row, text::File stream) {
    const bool hasReturns = isOfReturns(stream.get());
    text::LineReader reader(stream.get(), kPiece,
                            hasReturns ? text::LineMode::kReturns : text::LineMode::kBinary,
                            listener_.watch);
    files_.push_back({std::move(stream), std::move(reader), row, hasReturns});
    file_ = row;
    known_[row].wasOpened = true;
    if (hasReturns)
        noteAt(Finding::kReturnsAlone, row, 1, 0, {});
}

std::vector<fs::path> SourceFiles::opened() const {
    std::vector<fs::path> paths;
    for (const KnownFile& file : known_)
        paths.push_back(file.path);
    return paths;
}

std::uint32_t SourceFiles::fileRowOf(const fs::path& file) {
    return rowOfFile(file, displayed(file));
}

// Takes it off the line taken last.
bool SourceFiles::takeByteOrderMark() {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    const bool isThere = line_.starts_with(kByteOrderMark);
    if (isThere)
        line_.remove_prefix(kByteOrderMark.size());
    return isThere;
}

// The line taken last has no line end, or there was none to take.
bool SourceFiles::nextSeldom(bool isTaken) {
    OpenFile& file = files_.back();
    if (isTaken)
        return joinPieces(file);
    line_ = {};
    if (file.reader.hasFailed()) {
        isIncomplete_ = true;
        if (listener_.findings != nullptr) {
            listener_.findings->beginFile(known_[file_].name);
            text::noteFailure(*listener_.findings, text::FileFinding::kReadError,
                              file.reader.failure(), file.line);
        }
    }
    lastLine_ = file.line;
    files_.pop_back();
    if (files_.empty())
        return false;
    file_ = files_.back().row;
    return next();
}

// Longer than one piece, without a line end, or with a NUL.
bool SourceFiles::joinPieces(OpenFile& file) {
    hasLineEnd_ = false;
    joined_ = line_;
    while (file.reader.isCut() && file.reader.next())
        if (joined_.size() <= kMostLine)
            joined_ += file.reader.line();
    if (joined_.size() > kMostLine) {
        line_ = {};
        note(Finding::kLineLong);
        isIncomplete_ = true;
        joined_.resize(kMostLine);
    }
    joined_.resize(joined_.find_last_not_of("\r\n") + 1);
    line_ = joined_;
    return true;
}

std::size_t SourceFiles::columnOf(std::string_view field) const {
    const std::less_equal<const char*> isUpTo;
    const char* const begin = line_.data();
    const bool isPart = isUpTo(begin, field.data()) && isUpTo(field.data(), begin + line_.size());
    return isPart ? static_cast<std::size_t>(field.data() - begin) + 1 : 0;
}

bool SourceFiles::refuse(Finding finding, std::string_view name) {
    note(finding, line_, name);
    isIncomplete_ = true;
    return false;
}

// Whether another file, which is there, may be opened.
bool SourceFiles::admit(const fs::path& path, std::string_view name, std::uint32_t& row) {
    std::error_code error;
    if (!rows_.contains(path.native()) && !fs::is_regular_file(path, error))
        return refuse(Finding::kIncludeNoFile, name);
    row = rowOfFile(path, displayed(path));
    if (std::ranges::find(files_, row, &OpenFile::row) != files_.end())
        return refuse(Finding::kIncludeCycle, name);
    if (files_.size() > kMostDepth)
        return refuse(Finding::kIncludeDeep, name);
    if (known_[row].wasOpened)
        repeated_ += known_[row].size;
    if (repeated_ > kMostRepeated)
        return refuse(Finding::kIncludeLarge, name);
    return true;
}

bool SourceFiles::include(std::string_view given) {
    if (files_.empty())
        return false;
    const std::string name(given);  // which may be part of the line
    if (++includes_ > kMostIncludes)
        return refuse(Finding::kIncludeLarge, name);
    IncludePath found = findInclude(name, known_[file_].path.parent_path());
    if (found.path.empty())
        found = findInclude(name, deck_.path.parent_path());
    if (found.path.empty())
        found = findInclude(name, {});
    if (found.path.empty())
        return refuse(Finding::kIncludeMissing, name);
    std::uint32_t row = 0;
    if (!admit(found.path, name, row))
        return false;
    text::File stream = text::openFile(found.path.c_str(), "rb");
    if (stream == nullptr)
        return refuse(Finding::kIncludeFailed, name);
    note(Finding::kIncluded, line_, name);
    if (known_[row].isOutside)
        note(Finding::kIncludeOutside, line_, name);
    if (found.hasOtherCase)
        note(Finding::kIncludeCase, line_, displayed(found.path.filename()));
    push(row, std::move(stream));
    line_ = {};
    return true;
}

}  // namespace kvocaeio::tidy
