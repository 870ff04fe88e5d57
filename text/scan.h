/// Fields of a text scanned as the `sscanf` formats of the file readers scan them, in the C locale
/// whatever the host's.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

namespace kvocaeio::text {

/// White space of the C locale, as `isspace` has it.
constexpr bool isSpace(char c) {
    // What comes first settles it for nearly every character that is none.
    return c <= ' ' && (c == ' ' || (c >= '\t' && c <= '\r'));
}

/// Value of a decimal digit; 10 or more for any other character.
constexpr unsigned digitValue(char c) {
    return static_cast<unsigned char>(c) - unsigned{'0'};
}

constexpr bool isDigit(char c) {
    return digitValue(c) < 10;
}

/// `text` without white space at both ends.
constexpr std::string_view trimSpace(std::string_view text) {
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

/// One run of a scan format over one text. Each member is one directive of the format; a directive
/// that fails writes nothing, and all conversions behind it fail as well, so that a format reads
///
///     Scan scan(line);
///     scan.integer(id) && scan.separator(',') && scan.real(x);   // "%d , %lf"
///
/// The text ends at its end or at its first NUL. Nothing throws, nothing allocates.
class Scan {
  public:
    static constexpr std::size_t kNoWidth = static_cast<std::size_t>(-1);

    explicit Scan(std::string_view text)
        : position_(text.data()), end_(text.data() + text.size()) {}

    /// "%d", with a width "%8d": leading white space, a sign, decimal digits. A number out of range
    /// is stored as the nearest end of int. The width, here as below, does not count the leading
    /// white space; it is at least 1.
    bool integer(int& value, std::size_t width = kNoWidth) {
        const char* const last = reach(width);
        const char* next = position_;
        const bool negative = next != last && *next == '-';
        if (next != last && (*next == '-' || *next == '+'))
            ++next;
        const char* const digits = next;
        std::int64_t number = 0;
        for (; next != last && isDigit(*next); ++next)
            if (number <= kMaxInt)  // behind that it stays too large, whatever follows
                number = 10 * number + digitValue(*next);
        if (next == digits)
            return fail();
        position_ = next;
        value = static_cast<int>(negative ? std::max(-number, -kMaxInt - 1)
                                          : std::min(number, kMaxInt));
        return true;
    }

    /// "%lf" into double, "%f" into float, with a width "%16f": leading white space, a sign, then
    /// decimal digits with point and exponent, hexadecimal ones behind "0x", "inf", "infinity" or
    /// "nan", in any case. Digits of an exponent may be missing: its letter and sign are used up,
    /// and the number before them counts. Too large becomes infinity, too small zero.
    bool real(double& value, std::size_t width = kNoWidth);
    bool real(float& value, std::size_t width = kNoWidth);

    /// "%s": leading white space, then all up to the next white space. `value` points into the
    /// text.
    bool word(std::string_view& value, std::size_t width = kNoWidth) {
        const char* const last = reach(width);
        const char* const first = position_;
        while (position_ != last && !isSpace(*position_) && *position_ != '\0')
            ++position_;
        if (position_ == first)
            return fail();
        value = std::string_view(first, static_cast<std::size_t>(position_ - first));
        return true;
    }

    /// A blank in the format: any white space, also none. Always true.
    bool space() {
        const char* next = position_;
        while (next != end_ && isSpace(*next))
            ++next;
        position_ = next;
        return true;
    }

    /// Whether nothing is left of the text, as behind a directive that has failed.
    bool isAtEnd() const { return position_ == end_ || *position_ == '\0'; }

    /// The one character `c`, with no white space before it.
    bool literal(char c) {
        if (position_ == end_ || *position_ != c)
            return fail();
        ++position_;
        return true;
    }

    /// White space, then the one character `c`, then white space: " , " in a format.
    bool separator(char c) { return space() && literal(c) && space(); }

    /// Where the next directive begins; the end of the text after one that failed.
    const char* position() const { return position_; }

    /// What no directive has taken yet; empty once one has failed.
    std::string_view rest() const {
        return {position_, static_cast<std::size_t>(end_ - position_)};
    }

  private:
    static constexpr std::int64_t kMaxInt = std::numeric_limits<int>::max();

    // Skips the white space before a field and gives where a field of that width ends at the
    // latest.
    const char* reach(std::size_t width) {
        space();
        return width < static_cast<std::size_t>(end_ - position_) ? position_ + width : end_;
    }

    // Ends the text, so that nothing behind can be read.
    bool fail() {
        position_ = end_;
        return false;
    }

    template <typename Real>
    bool scanReal(Real& value, std::size_t width);

    const char* position_;
    const char* end_;
};

/// `atoi`, with a number out of range stored as the nearest end of int; 0 where no number stands.
int toInteger(std::string_view text);

/// `atof` in the C locale; 0 where no number stands.
double toReal(std::string_view text);

}  // namespace kvocaeio::text
