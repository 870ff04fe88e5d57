/// Fields of a text scanned as the `sscanf` formats of the file readers scan them, in the C locale
/// whatever the host's.
#pragma once

#include <cstddef>
#include <string_view>

namespace kvocaeio::text {

/// One run of a scan format over one text. Each member is one directive of the format; a directive
/// that fails writes nothing, and all behind it fail as well, so that a format reads
///
///     Scan scan(line);
///     scan.integer(id) && scan.literal(',') && scan.real(x);   // "%d , %lf"
///
/// The text ends at its end or at its first NUL. Nothing throws, nothing allocates.
class Scan {
  public:
    static constexpr std::size_t kNoWidth = static_cast<std::size_t>(-1);

    explicit Scan(std::string_view text);

    /// "%d", with a width "%8d": leading white space, a sign, decimal digits. A number out of range
    /// is stored as the nearest end of int. The width does not count the leading white space.
    bool integer(int& value, std::size_t width = kNoWidth);

    /// "%lf" and "%f": leading white space, then decimal or hexadecimal digits with point and
    /// exponent, "inf", "infinity" or "nan", in any case. Digits of an exponent may be missing: the
    /// number before the exponent counts. Too large becomes infinity, too small zero.
    bool real(double& value, std::size_t width = kNoWidth);
    bool real(float& value, std::size_t width = kNoWidth);

    /// "%s": leading white space, then all up to the next white space. `value` points into the text.
    bool word(std::string_view& value, std::size_t width = kNoWidth);

    /// "%8c": the next `count` characters, white space included. At the end of the text: false. With
    /// fewer than `count` left, those are given, as the C library writes them, and the scan fails.
    bool characters(std::size_t count, std::string_view& value);

    /// A blank in the format: any white space, also none. Never fails by itself.
    bool space();

    /// White space, then the one character `c`, then white space: " , " in a format.
    bool separator(char c) { return space() && literal(c) && space(); }

    /// The one character `c`, with no white space before it.
    bool literal(char c);

  private:
    const char* position_;
    const char* end_;
    bool failed_ = false;
};

/// `atoi` with the range of int kept at its ends; 0 where no number stands.
int toInteger(std::string_view text);

/// `atof` in the C locale; 0 where no number stands.
double toReal(std::string_view text);

}  // namespace kvocaeio::text
