/// What an import notices beside a file's content, folded by kind, and how a host follows an import
/// and stops it.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace kvocaeio::text {

/// One kind of finding. Every island has a table of its kinds and an enum of the rows.
struct FindingKind {
    std::string_view code;  ///< stable, such as "abaqus.keyword-unknown"
    std::string_view why;   ///< what was noticed
};

/// Where something was noticed.
struct FindingPlace {
    static constexpr std::size_t kMostText = 80;

    std::size_t line = 0;    ///< from 1; 0 where no line is concerned
    std::size_t column = 0;  ///< from 1; 0 where no field is concerned
    std::size_t length = 0;
    std::array<char, kMostText> characters{};

    /// The line or field in question, without its line end, cut to `kMostText` characters.
    std::string_view text() const { return {characters.data(), length}; }
};

/// Findings of one import. Keeps a count and the first places of each kind, so its memory does not
/// depend on the file. No member function throws or allocates.
class Findings {
  public:
    static constexpr std::size_t kMostKinds = 64;
    static constexpr std::size_t kMostPlaces = 8;

    /// `kinds` is borrowed.
    template <std::size_t N>
    requires(N <= kMostKinds) explicit Findings(const std::array<FindingKind, N>& kinds) noexcept
        : kinds_(kinds) {}

    void note(std::size_t kind, std::size_t line, std::size_t column,
              std::string_view what) noexcept;

    std::span<const FindingKind> kinds() const { return kinds_; }
    std::size_t count(std::size_t kind) const { return entries_[kind].count; }
    /// The first places of a kind, in the order in which they were noticed.
    std::span<const FindingPlace> places(std::size_t kind) const;

  private:
    struct Entry {
        std::size_t count = 0;
        std::array<FindingPlace, kMostPlaces> places;
    };

    std::span<const FindingKind> kinds_;
    std::array<Entry, kMostKinds> entries_;
};

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

    bool hasStopped() const { return watch != nullptr && watch->stopped; }
    /// The listener of a pass that comes again, as a counting pass does: the host follows it, but
    /// nothing is noted twice.
    Listener withoutFindings() const { return {nullptr, watch}; }

    /// Notes what no line of a file is concerned with.
    template <class Kind>
    void note(Kind kind, std::string_view what) const {
        if (findings != nullptr) [[unlikely]]
            findings->note(static_cast<std::size_t>(kind), 0, 0, what);
    }
};

}  // namespace kvocaeio::text
