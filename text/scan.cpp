/// Reals of the scan formats: how far they reach as the C library sees it, and their value by
/// `std::from_chars` or, where that is exact, by one operation.
#include "text/scan.h"

#include <charconv>
#include <cmath>

namespace kvocaeio::text {

namespace {

// Whole numbers up to `kWhole` and powers of ten up to 10^`kPower` are exact in the type, so that
// one product or quotient of the two is rounded once and thus right (Clinger's fast path).
template <typename Real>
struct Exact {
    static constexpr std::uint64_t kWhole = std::uint64_t{1} << std::numeric_limits<Real>::digits;
    static constexpr std::int64_t kPower = std::numeric_limits<Real>::digits == 53 ? 22 : 10;
};

constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                   1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                   1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// As many decimal digits as 64 bits hold, whichever they are.
constexpr std::ptrdiff_t kMaxDigits = 19;

// Far beyond the exponents of any real and the length of any text, far from the ends of 64 bits.
constexpr std::int64_t kMaxExponent = std::int64_t{1} << 48;

constexpr char toLower(char c) {
    return static_cast<char>(c | 0x20);
}  // right for letters only

constexpr bool isHexDigit(char c) {
    return isDigit(c) || (toLower(c) >= 'a' && toLower(c) <= 'f');
}

// Takes `word`, given in lower case, in any case.
bool takeWord(const char*& next, const char* last, std::string_view word) {
    if (static_cast<std::size_t>(last - next) < word.size())
        return false;
    if (!std::equal(word.begin(), word.end(), next, [](char a, char b) { return a == toLower(b); }))
        return false;
    next += word.size();
    return true;
}

// Takes decimal digits behind those that `number` holds already.
inline void takeDigits(const char*& next, const char* last, std::uint64_t& number) {
    for (; next != last && isDigit(*next); ++next)
        number = 10 * number + static_cast<std::uint64_t>(*next - '0');
}

// Takes an exponent, its digits or its sign and digits perhaps missing, and puts `numberEnd` where
// the number ends for `std::from_chars`, which wants the digits.
std::int64_t takeExponent(const char*& next, const char* last, char letter,
                          const char*& numberEnd) {
    numberEnd = next;
    if (next == last || toLower(*next) != letter)
        return 0;
    ++next;
    const bool negative = next != last && *next == '-';
    if (next != last && (*next == '-' || *next == '+'))
        ++next;
    const char* const digits = next;
    std::int64_t exponent = 0;
    for (; next != last && isDigit(*next); ++next)
        if (exponent < kMaxExponent)
            exponent = 10 * exponent + (*next - '0');
    if (next != digits)
        numberEnd = next;
    return negative ? -exponent : exponent;
}

// Value of the number [first, last), which has no sign; `exponent` is what is written at its end.
template <typename Real>
Real convert(const char* first, const char* last, std::chars_format format, std::int64_t exponent) {
    Real value = 0;
    if (std::from_chars(first, last, value, format).ec != std::errc::result_out_of_range)
        return value;
    // Too large or too small: the exponent and the place of the first digit that counts tell.
    const char* const digit =
        std::find_if(first, last, [](char c) { return c != '0' && c != '.'; });
    const char* const point = std::find(first, last, '.');
    const std::ptrdiff_t place = point - digit;
    const std::int64_t magnitude =
        exponent + (format == std::chars_format::hex ? 4 * place : place);
    return magnitude > 0 ? std::numeric_limits<Real>::infinity() : Real{0};
}

// Takes what stands behind "0x". Without any digit there must be a point at least, as the C library
// has it, and there is no exponent then.
template <typename Real>
bool takeHexadecimal(const char*& next, const char* last, Real& value) {
    const char* const first = next;
    next = std::find_if_not(next, last, isHexDigit);
    std::ptrdiff_t digits = next - first;
    if (next != last && *next == '.') {
        const char* const fraction = ++next;
        next = std::find_if_not(next, last, isHexDigit);
        digits += next - fraction;
    }
    value = 0;
    if (digits > 0) {
        const char* numberEnd = next;
        const std::int64_t exponent = takeExponent(next, last, 'p', numberEnd);
        value = convert<Real>(first, numberEnd, std::chars_format::hex, exponent);
    }
    return next != first;
}

template <typename Real>
bool takeInfinityOrNan(const char*& next, const char* last, Real& value) {
    value = std::numeric_limits<Real>::quiet_NaN();
    if (takeWord(next, last, "nan"))
        return true;
    value = std::numeric_limits<Real>::infinity();
    // Whoever goes on with an "i" must write all of "infinity".
    return takeWord(next, last, "inf") &&
           (next == last || toLower(*next) != 'i' || takeWord(next, last, "inity"));
}

}  // namespace

template <typename Real>
bool Scan::scanReal(Real& value, std::size_t width) {
    const char* const last = reach(width);
    const char* next = position_;
    const bool negative = next != last && *next == '-';
    if (next != last && (*next == '-' || *next == '+'))
        ++next;
    const char* const first = next;
    std::uint64_t number = 0;
    takeDigits(next, last, number);
    std::ptrdiff_t digits = next - first;
    std::ptrdiff_t decimals = 0;
    if (next != last && *next == '.') {
        const char* const fraction = ++next;
        takeDigits(next, last, number);
        decimals = next - fraction;
        digits += decimals;
    }
    Real magnitude;
    if (digits == 0) {
        if (next != first || !takeInfinityOrNan(next, last, magnitude))
            return fail();
    } else if (next == first + 1 && next != last && *first == '0' && toLower(*next) == 'x' &&
               width - static_cast<std::size_t>(next - position_) > 1) {
        // (An "x" in the last place of a width belongs to the text behind the number.)
        if (!takeHexadecimal(++next, last, magnitude))
            return fail();
    } else {
        const char* numberEnd = next;
        const std::int64_t exponent = takeExponent(next, last, 'e', numberEnd);
        const std::int64_t power = exponent - decimals;
        if (digits <= kMaxDigits && number <= Exact<Real>::kWhole &&
            std::abs(power) <= Exact<Real>::kPower) {
            const auto whole = static_cast<Real>(static_cast<std::int64_t>(number));
            const auto scale = static_cast<Real>(kPowersOfTen[std::abs(power)]);
            magnitude = power < 0 ? whole / scale : whole * scale;
        } else {
            magnitude = convert<Real>(first, numberEnd, std::chars_format::general, exponent);
        }
    }
    position_ = next;
    value = negative ? -magnitude : magnitude;
    return true;
}

bool Scan::real(double& value, std::size_t width) {
    return scanReal(value, width);
}

bool Scan::real(float& value, std::size_t width) {
    return scanReal(value, width);
}

bool Scan::characters(std::size_t count, std::string_view& value) {
    const auto left = static_cast<std::size_t>(end_ - position_);
    const std::string_view reachable(position_, std::min(count, left));
    const std::string_view found = reachable.substr(0, reachable.find('\0'));
    if (found.empty())
        return fail();
    value = found;
    position_ += found.size();
    return true;
}

int toInteger(std::string_view text) {
    int value = 0;
    Scan(text).integer(value);
    return value;
}

double toReal(std::string_view text) {
    double value = 0;
    // Where a field fails `atof` may still take its front: the "inf" of "info", the "-0" of "-0x".
    Scan(text).real(value) || Scan(text).real(value, 3) || Scan(text).real(value, 4);
    return value;
}

}  // namespace kvocaeio::text
