/// What an import notices beside a file's content, folded, and how a host follows an import and
/// stops it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace kvocaeio::text {

/// What a finding means for the model that the host gets.
enum class Severity : unsigned char {
    kNote,     ///< passed over as designed; nothing of the mesh is concerned
    kWarning,  ///< something of the model is lost or changed
    kError,    ///< what follows is not read, or the result is surely not what the file means
};

/// One kind of finding. Every island has a table of its kinds, an enum of the rows, and a function
/// `rowOf` from one to the other.
struct FindingKind {
    std::string_view code;  ///< stable, such as "abaqus.keyword-unknown"
    Severity severity;
    /// A sentence without a full stop; "{}" stands for the subject of the finding, or for the text
    /// at its first place where it has no subject.
    std::string_view text;
    std::string_view why;     ///< what the reader does there, and why; for the documentation
    std::string_view advice;  ///< what the user can do about it; empty where nothing helps
};

/// Where something was noticed.
struct FindingPlace {
    static constexpr std::size_t kMostText = 80;

    std::size_t line = 0;      ///< from 1; 0 where no line is concerned
    std::uint32_t column = 0;  ///< from 1, in bytes; 0 where no field is concerned
    std::uint8_t file = 0;     ///< a row of `Findings::files()`
    std::uint8_t length = 0;
    std::array<char, kMostText> characters;

    /// The line or field in question, or what else names the place, cut to `kMostText` characters.
    std::string_view text() const { return {characters.data(), length}; }
    /// Sets the text, without its line end.
    void setText(std::string_view what) noexcept;
};

/// Equal findings: those of one kind and one subject, such as the keyword that is unknown.
struct FindingEntry {
    static constexpr std::size_t kMostPlaces = 8;
    static constexpr std::size_t kMostSubject = 80;

    std::string_view subject() const { return {subjectText.data(), subjectLength}; }
    /// The first places, in the order in which they were noticed.
    std::span<const FindingPlace> places() const { return {first.data(), placeCount}; }

    const FindingKind* kind = nullptr;
    std::size_t count = 0;
    std::uint8_t placeCount = 0;
    std::uint8_t subjectLength = 0;
    std::array<char, kMostSubject> subjectText;
    std::array<FindingPlace, kMostPlaces> first;
};

/// Findings of one import. Equal ones are kept once, with a count and their first places, and there
/// are at most `kMostEntries`, so the memory stays below half a megabyte whatever the file. Only
/// the constructor throws, `std::bad_alloc`. Where memory runs out later, further findings are only
/// counted, and one error is still kept, which says so.
class Findings {
  public:
    static constexpr std::size_t kMostEntries = 384;
    /// Further subjects of a kind are folded under `kOtherSubjects`.
    static constexpr std::size_t kMostSubjects = 24;
    static constexpr std::string_view kOtherSubjects = "(others)";
    static constexpr std::size_t kMostFiles = 64;
    static constexpr std::size_t kMostPath = 1023;

    /// The findings from here on are of the file at `path`, which is copied. Further files than
    /// `kMostFiles` count as the last one.
    void beginFile(std::string_view path) noexcept;
    /// The file that findings are of at present, and the way back to one.
    std::size_t presentFile() const { return file_; }
    void returnToFile(std::size_t row) { file_ = static_cast<std::uint8_t>(row); }
    /// The files in the order of their first `beginFile`.
    std::string_view file(std::size_t row) const;
    std::size_t fileCount() const { return fileCount_; }

    /// Counts a finding. Returns the place to be filled, whose file is set, or null when the first
    /// places of such findings are known already.
    FindingPlace* count(const FindingKind& kind, std::string_view subject) noexcept;
    /// Counts `more` findings that are like one before.
    void countMore(const FindingKind& kind, std::string_view subject, std::size_t more) noexcept;

    /// Notes a finding at a line and column of the present file; either may be 0.
    void note(const FindingKind& kind, std::size_t line, std::size_t column, std::string_view what,
              std::string_view subject = {}) noexcept;

    /// In the order in which they were first noticed.
    std::size_t entryCount() const { return entryCount_; }
    const FindingEntry& entry(std::size_t row) const { return *entries_[row]; }
    /// How many findings of a kind there are, whatever their subjects.
    std::size_t countOf(const FindingKind& kind) const;
    /// The finding of an error that was noticed last; null without one.
    const FindingEntry* lastError() const { return lastError_; }
    /// Where, among the places that are kept of it.
    std::size_t lastErrorPlace() const { return lastErrorPlace_; }
    /// How many findings could not be kept since memory ran out.
    std::size_t lostCount() const { return lostCount_; }

    /// Forgets everything.
    void clear() noexcept;

  private:
    static constexpr std::size_t kSlots = 1024;  // a power of two, well above `kMostEntries`

    FindingEntry* find(const FindingKind& kind, std::string_view subject) noexcept;
    FindingEntry* add(const FindingKind& kind, std::string_view subject, std::size_t slot) noexcept;

    using Path = std::array<char, kMostPath + 1>;
    std::array<std::unique_ptr<FindingEntry>, kMostEntries> entries_;
    std::array<std::uint16_t, kSlots> slots_{};  // row + 1 of an entry, by hash
    std::array<std::unique_ptr<Path>, kMostFiles> files_;
    std::size_t entryCount_ = 0;
    std::size_t fileCount_ = 0;
    std::size_t lostCount_ = 0;
    std::uint8_t file_ = 0;
    const FindingEntry* lastError_ = nullptr;
    std::size_t lastErrorPlace_ = 0;
    // For the error that says that memory has run out.
    std::unique_ptr<FindingEntry> spare_ = std::make_unique<FindingEntry>();
};

/// What any file can be found to be, whatever its format.
enum class FileFinding : unsigned char {
    kCannotOpen,
    kReadError,
    kOutOfMemory,
    kChanged,
    kReportIncomplete,
    kEndMark
};

/// In the order of `FileFinding`.
extern const std::array<FindingKind, 6> kFileFindingKinds;

inline const FindingKind& rowOf(FileFinding finding) {
    return kFileFindingKinds[static_cast<std::size_t>(finding)];
}

/// A host that follows an import. Asked once per block of each pass over a file.
struct Watch {
    /// Whether the import goes on. `bytesRead` is how far the pass is in its file. Must not throw.
    bool (*goesOn)(void* host, std::size_t bytesRead) = nullptr;
    void* host = nullptr;
    /// Set by the first answer of false. A pass then meets the end of its file, and so do all
    /// passes after it; the order of the import ends with a failure.
    bool stopped = false;
};

/// Who listens to an import: nobody in an ordinary one. Both are borrowed.
struct Listener {
    Findings* findings = nullptr;
    Watch* watch = nullptr;
    /// Nothing is printed, and nothing of the process or beside the file is looked at or changed.
    bool isQuiet = false;

    bool hasStopped() const { return watch != nullptr && watch->stopped; }
    /// The listener of a pass that comes again, as a counting pass does: the host follows it, but
    /// nothing is noted twice.
    Listener withoutFindings() const { return {nullptr, watch, isQuiet}; }

    /// Notes what no line of a file is concerned with.
    template <class Kind>
    void note(Kind kind, std::string_view what, std::string_view subject = {}) const {
        if (findings != nullptr) [[unlikely]]
            findings->note(rowOf(kind), 0, 0, what, subject);
    }
};

}  // namespace kvocaeio::text
