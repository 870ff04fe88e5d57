/// What the commands say of one file, whatever its format.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "import_findings.h"

namespace kvocaeio::host {

class OriginalOids;
struct PageStyle;

/// A file that no report can be given of; the text says why, for the user.
struct FileError : std::runtime_error {
    /// `reason` is the same in a word, for programs.
    explicit FileError(const std::string& text, std::string_view reason = "cannot-be-read")
        : std::runtime_error(text), code(reason) {}

    std::string_view code;
};

/// Something that the user had better know of a file.
struct Finding {
    using Level = host::Level;

    Level level;
    std::string_view code;                ///< its kind in a word, for programs
    std::size_t count;                    ///< how many there are of it
    std::string text;                     ///< the same for a person
    std::vector<std::string> paths = {};  ///< the files that it is about, if any
};

/// What one reader learned of one file.
class FileReport {
  public:
    virtual ~FileReport() = default;

    /// Writes the report for a person, lines indented by two blanks.
    virtual void print(std::ostream& out, const PageStyle& style) const = 0;

    /// Adds the report for programs to `object`.
    virtual void addTo(Json& object) const = 0;

    /// Names things by the numbers that they have in the original of a tidy deck.
    virtual void restoreNumbers(const OriginalOids&) {}

    /// The times that it took, in seconds, by name.
    virtual std::vector<std::pair<std::string_view, double>> seconds() const = 0;

    /// What neither of these says. An error means that the file failed although there is a report.
    std::vector<Finding> findings;

    /// What the library's own report says.
    ImportFindings imported;

    /// Adds a finding; none of a kind are not worth one.
    void find(Finding::Level level, std::string_view code, std::size_t count, std::string text);
    void warn(std::string_view code, std::size_t count, std::string text) {
        find(Finding::Level::kWarning, code, count, std::move(text));
    }
    /// Warns of coordinates that are infinite or no numbers, in so many of `things`.
    void warnOfNonFinite(std::size_t number, std::string_view things);
};

}  // namespace kvocaeio::host
