/// The data lines of an Abaqus deck: fields between commas, and numbers in them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "text/eight_columns.h"
#include "text/scan.h"

namespace kvocaeio::tidy::abaqus {

/// Walks the fields of a data line.
class Fields {
  public:
    explicit Fields(std::string_view line) : rest_(line) {}

    /// Takes the next field, trimmed, which may be empty. False at the end; a comma that ends the
    /// line is not followed by a field.
    bool next(std::string_view& field);

  private:
    std::string_view rest_;
};

/// Takes digits at `at`, which is left after them. False where there are none, or more than an
/// `int` holds.
inline bool takeDigits(const char*& at, const char* end, int& value) {
    constexpr std::ptrdiff_t kMostDigits = 10;
    const char* const first = at;
    int front = 0;
    if (end - at >= 8)
        at += text::readLeadingDigits(at, front);
    std::int64_t number = front;
    for (; at != end && text::isDigit(*at) && at - first < kMostDigits; ++at)
        number = 10 * number + text::digitValue(*at);
    value = static_cast<int>(number);
    return at != first && std::in_range<int>(number);
}

/// Reads a whole field as a number. False, with `value` untouched, where it is none or too large.
bool readInteger(std::string_view field, int& value);

/// The same for a real number. Its exponent may begin with D as in Fortran.
bool readReal(std::string_view field, double& value);

/// Reads up to `count` real numbers from a line; empty and missing fields keep their value. False
/// where a field is no number. `taken`, if not null, is the number of fields that were there.
bool readReals(std::string_view line, double* values, std::size_t count,
               std::size_t* taken = nullptr);

}  // namespace kvocaeio::tidy::abaqus
