/// Reals of the scan formats: how far they reach as the C library sees it, and their value by
/// `std::from_chars` or, where that is exact, by one operation.
#include "text/scan.h"

#include <charconv>
#include <cstdlib>

#include "text/powers_of_ten.h"

namespace kvocaeio::text {

namespace {

// Whole numbers up to `kWhole` and powers of ten up to 10^`kPower` are exact in the type, so that
// one product or quotient of the two is rounded once and thus right (Clinger's fast path).
template <typename Real>
struct Exact {
    static constexpr std::uint64_t kWhole = std::uint64_t{1} << std::numeric_limits<Real>::digits;
    static constexpr std::int64_t kPower = std::numeric_limits<Real>::digits == 53 ? 22 : 10;
};

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

struct Digits {
    const char* next;  // the text behind them
    std::uint64_t number;
};

struct Exponent {
    const char* next;       // the text behind it
    const char* numberEnd;  // for `std::from_chars`, which wants an exponent to have digits
    std::int64_t value;
};

template <typename Real>
struct Taken {
    const char* next;  // the text behind it; null where there is no number
    Real value;
};

// Decimal digits, put behind those of `number`.
inline Digits takeDigits(const char* next, const char* last, std::uint64_t number) {
    for (; next != last && isDigit(*next); ++next)
        number = 10 * number + digitValue(*next);
    return {next, number};
}

// An exponent, if there is one. Its digits or its sign and digits may be missing.
inline Exponent takeExponent(const char* next, const char* last, char letter) {
    const char* numberEnd = next;
    if (next == last || toLower(*next) != letter)
        return {next, numberEnd, 0};
    ++next;
    const bool negative = next != last && *next == '-';
    if (next != last && (*next == '-' || *next == '+'))
        ++next;
    std::int64_t exponent = 0;
    for (; next != last && isDigit(*next); numberEnd = ++next)
        if (exponent < kMaxExponent)
            exponent = 10 * exponent + digitValue(*next);
    return {next, numberEnd, negative ? -exponent : exponent};
}

// Value of the number [first, last), which has no sign; `exponent` is the one written at its end.
template <typename Real>
Real convert(const char* first, const char* last, std::chars_format format, std::int64_t exponent) {
    Real value = 0;
    if (std::from_chars(first, last, value, format).ec != std::errc::result_out_of_range)
        return value;
    // Too large or too small: the exponent and the place of the first digit that counts tell.
    const char* const digit =
        std::find_if(first, last, [](char c) { return c != '0' && c != '.'; });
    const std::ptrdiff_t place = std::find(first, last, '.') - digit;
    const std::int64_t magnitude =
        exponent + (format == std::chars_format::hex ? 4 * place : place);
    return magnitude > 0 ? std::numeric_limits<Real>::infinity() : Real{0};
}

// What stands behind "0x". Without any digit there must be a point at least, as the C library has
// it, and there is no exponent then.
template <typename Real>
Taken<Real> takeHexadecimal(const char* first, const char* last) {
    const char* next = std::find_if_not(first, last, isHexDigit);
    std::ptrdiff_t digits = next - first;
    if (next != last && *next == '.') {
        const char* const fraction = next + 1;
        next = std::find_if_not(fraction, last, isHexDigit);
        digits += next - fraction;
    }
    if (digits == 0)
        return {next == first ? nullptr : next, 0};
    const Exponent exponent = takeExponent(next, last, 'p');
    return {exponent.next,
            convert<Real>(first, exponent.numberEnd, std::chars_format::hex, exponent.value)};
}

// Gives what is behind `word` (in lower case), which may be written in any case; null if it is not
// there.
const char* takeWord(const char* next, const char* last, std::string_view word) {
    const bool found =
        static_cast<std::size_t>(last - next) >= word.size() &&
        std::equal(word.begin(), word.end(), next, [](char a, char b) { return a == toLower(b); });
    return found ? next + word.size() : nullptr;
}

template <typename Real>
Taken<Real> takeInfinityOrNan(const char* first, const char* last) {
    if (const char* next = takeWord(first, last, "nan"))
        return {next, std::numeric_limits<Real>::quiet_NaN()};
    const char* next = takeWord(first, last, "inf");
    // Whoever goes on with an "i" must write all of "infinity".
    if (next != nullptr && next != last && toLower(*next) == 'i')
        next = takeWord(next, last, "inity");
    return {next, std::numeric_limits<Real>::infinity()};
}

}  // namespace

template <typename Real>
bool Scan::scanReal(Real& value, std::size_t width) {
    const char* const last = reach(width);
    const bool negative = position_ != last && *position_ == '-';
    const bool hasSign = negative || (position_ != last && *position_ == '+');
    const char* const whole = position_ + (hasSign ? 1 : 0);
    Digits digits = takeDigits(whole, last, 0);
    std::ptrdiff_t count = digits.next - whole;
    std::ptrdiff_t decimals = 0;
    if (digits.next != last && *digits.next == '.') {
        const char* const fraction = digits.next + 1;
        digits = takeDigits(fraction, last, digits.number);
        decimals = digits.next - fraction;
        count += decimals;
    }
    const Exponent exponent = takeExponent(digits.next, last, 'e');
    const std::int64_t power = exponent.value - decimals;

    Taken<Real> taken{exponent.next, 0};
    if (count == 0) [[unlikely]] {
        taken = takeInfinityOrNan<Real>(whole, last);
    } else if (taken.next == whole + 1 && taken.next != last && *whole == '0' &&
               toLower(*taken.next) == 'x' &&
               width - static_cast<std::size_t>(taken.next - position_) > 1) [[unlikely]] {
        // (An "x" in the last place of a width would belong to the text behind the number.)
        taken = takeHexadecimal<Real>(taken.next + 1, last);
    } else if (count <= kMaxDigits && digits.number <= Exact<Real>::kWhole &&
               std::abs(power) <= Exact<Real>::kPower) [[likely]] {
        const auto number = static_cast<Real>(static_cast<std::int64_t>(digits.number));
        const auto scale = static_cast<Real>(kPowersOfTen[std::abs(power)]);
        taken.value = power < 0 ? number / scale : number * scale;
    } else {
        taken.value =
            convert<Real>(whole, exponent.numberEnd, std::chars_format::general, exponent.value);
    }
    if (taken.next == nullptr)
        return fail();
    position_ = taken.next;
    value = negative ? -taken.value : taken.value;
    return true;
}

bool Scan::real(double& value, std::size_t width) {
    return scanReal(value, width);
}

bool Scan::real(float& value, std::size_t width) {
    return scanReal(value, width);
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
