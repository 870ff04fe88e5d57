/// The lines of a deck and of the files that it includes, in the order in which they are meant.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "text/file.h"
#include "text/findings.h"
#include "text/line_reader.h"
#include "tidy/deck.h"
#include "tidy/findings.h"

namespace kvocaeio::tidy {

/// A stack of open files. The file on top delivers its lines; at its end the one below goes on. A
/// pass over a deck makes one of these, a second pass another.
class SourceFiles {
  public:
    static constexpr std::size_t kMostDepth = 16;
    static constexpr std::size_t kMostIncludes = 10'000;
    static constexpr std::uintmax_t kMostRepeated = std::uintmax_t{1} << 30;
    static constexpr std::size_t kMostLine = std::size_t{1} << 20;

    /// `listener` may listen to nothing. What is found is noted there.
    SourceFiles(const Deck& deck, const text::Listener& listener);

    /// Opens the deck. False, with the reason noted, where that fails.
    bool open();

    /// Takes the next line, without its line end. False at the end of the deck.
    bool next() {
        if (files_.empty())
            return false;
        OpenFile& file = files_.back();
        const bool isTaken = file.reader.next();
        if (isTaken) {
            line_ = file.reader.line();
            hasLineEnd_ = true;
            hasByteOrderMark_ = ++file.line == 1 && takeByteOrderMark();
            if (line_.ends_with('\n')) {
                line_.remove_suffix(line_.ends_with("\r\n") ? 2 : 1);
                return true;
            }
        }
        return nextSeldom(isTaken);
    }

    /// The line taken last. Valid until the next call of `next`, `include` or `endDeck`.
    std::string_view line() const { return line_; }
    /// Whether it ends with a line end, and holds no NUL.
    bool hasLineEnd() const { return hasLineEnd_; }
    /// Whether a byte order mark stands before it in the file.
    bool hasByteOrderMark() const { return hasByteOrderMark_; }
    /// Whether lines of the present file end in carriage returns alone.
    bool hasReturnsAlone() const { return !files_.empty() && files_.back().hasReturnsAlone; }
    /// Its place: the number of the line from 1, and the row of the file among those opened so far.
    /// After the end of the deck they are those of its last line.
    std::size_t lineNumber() const { return files_.empty() ? lastLine_ : files_.back().line; }
    std::uint32_t fileRow() const { return file_; }
    /// The column of a field in the line taken last, from 1; 0 where it is no part of it.
    std::size_t columnOf(std::string_view field) const;
    /// The name of a file by its row.
    const std::string& fileName(std::uint32_t row) const { return known_[row].name; }

    /// Opens a file that the line taken last includes; its lines come next. `given` is the name as
    /// the deck has it, without quotes. False, with the reason noted, where it cannot be opened;
    /// the deck then goes on without it.
    bool include(std::string_view given);

    /// Ends all files, as the last statement of a deck does.
    void endDeck() {
        lastLine_ = lineNumber();
        files_.clear();
    }

    /// Whether anything was found that makes the deck incomplete.
    bool isIncomplete() const { return isIncomplete_; }
    /// The files opened so far, each once, by their rows.
    std::vector<std::filesystem::path> opened() const;
    /// The row in this pass of a file that another one has opened.
    std::uint32_t fileRowOf(const std::filesystem::path& file);

    /// Notes the line taken last, or a part of it: the column is that of `field` in it.
    template <class Kind>
    void note(Kind kind, std::string_view field, std::string_view subject = {}) {
        noteAt(kind, file_, lineNumber(), columnOf(field), field, subject);
    }
    template <class Kind>
    void note(Kind kind) {
        noteAt(kind, file_, lineNumber(), 0, line_, {});
    }
    /// Notes any place.
    template <class Kind>
    void noteAt(Kind kind, std::uint32_t file, std::size_t line, std::size_t column,
                std::string_view what, std::string_view subject = {}) {
        if (listener_.findings == nullptr)
            return;
        listener_.findings->beginFile(known_[file].name);
        listener_.findings->note(rowOf(kind), line, column, what, subject);
    }

  private:
    struct OpenFile {
        text::File stream;
        text::LineReader reader;
        std::uint32_t row;  // of `known_`
        bool hasReturnsAlone;
        std::size_t line = 0;
    };
    struct KnownFile {
        std::filesystem::path path;
        std::string name;
        std::uintmax_t size = 0;
        bool isOutside = false;
        bool wasOpened = false;
    };

    bool takeByteOrderMark();
    bool nextSeldom(bool isTaken);
    bool joinPieces(OpenFile& file);
    std::uint32_t rowOfFile(const std::filesystem::path& path, std::string name);
    void push(std::uint32_t row, text::File stream);
    bool refuse(Finding finding, std::string_view name);
    bool admit(const std::filesystem::path& path, std::string_view name, std::uint32_t& row);

    const Deck& deck_;
    text::Listener listener_;
    std::vector<OpenFile> files_;
    std::vector<KnownFile> known_;
    std::unordered_map<std::filesystem::path::string_type, std::uint32_t> rows_;  // by path
    std::string_view line_;
    std::string joined_;  // a line of several pieces
    std::uint32_t file_ = 0;
    std::size_t lastLine_ = 0;  // of the deck, once it has ended
    std::size_t includes_ = 0;
    std::uintmax_t repeated_ = 0;
    bool hasLineEnd_ = false;
    bool hasByteOrderMark_ = false;
    bool isIncomplete_ = false;
};

}  // namespace kvocaeio::tidy
