/// What the commands say of one file, whatever its format.
#pragma once

#include <iosfwd>
#include <nlohmann/json_fwd.hpp>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kvocaeio::host {

using Json = nlohmann::ordered_json;

/// A file that no report can be given of; the text says why, for the user.
struct FileError : std::runtime_error {
    /// `reason` is the same in a word, for programs.
    explicit FileError(const std::string& text, std::string_view reason = "cannot-be-read")
        : std::runtime_error(text), code(reason) {}

    std::string_view code;
};

/// What one reader learned of one file.
class FileReport {
  public:
    virtual ~FileReport() = default;

    /// Writes the report for a person, lines indented by two blanks.
    virtual void print(std::ostream& out) const = 0;

    /// Adds the report for programs to `object`.
    virtual void addTo(Json& object) const = 0;

    /// What went wrong although there is a report; empty when nothing did.
    virtual std::string failure() const { return {}; }
};

}  // namespace kvocaeio::host
