/// Digits of a number, and the most of them that eight columns hold.
#include "tidy/nastran/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <span>

#include "text/scan.h"

namespace kvocaeio::tidy::nastran {

namespace {

constexpr std::size_t kWidth = 8;

bool isSign(char c) {
    return c == '+' || c == '-';
}

std::size_t digitsIn(std::string_view text) {
    const auto end = std::ranges::find_if_not(text, text::isDigit);
    return static_cast<std::size_t>(end - text.begin());
}

// The parts of a real.
struct RealParts {
    std::string_view mantissa;  // with its sign, without a plus
    std::string_view exponent;  // likewise, may be empty
    bool isPlain = true;        // no plus signs, no letter but "E"
};

bool splitReal(std::string_view text, RealParts& parts) {
    if (!text.empty() && text[0] == '+') {
        text.remove_prefix(1);
        parts.isPlain = false;
    }
    std::size_t at = !text.empty() && text[0] == '-' ? 1 : 0;
    const std::size_t before = digitsIn(text.substr(at));
    at += before;
    std::size_t after = 0;
    if (at < text.size() && text[at] == '.') {
        after = digitsIn(text.substr(at + 1));
        at += 1 + after;
    }
    if (before + after == 0)
        return false;
    parts.mantissa = text.substr(0, at);
    text.remove_prefix(at);
    if (text.empty())
        return true;
    const bool hasLetter = std::string_view("EeDd").find(text[0]) != std::string_view::npos;
    parts.isPlain = parts.isPlain && (text[0] == 'E' || text[0] == 'e' || text[0] == '-');
    if (hasLetter)
        text.remove_prefix(1);
    else if (!isSign(text[0]))
        return false;
    if (!text.empty() && text[0] == '+') {
        text.remove_prefix(1);
        parts.isPlain = false;
    }
    parts.exponent = text;
    const std::string_view digits = text.substr(!text.empty() && text[0] == '-' ? 1 : 0);
    return !digits.empty() && digitsIn(digits) == digits.size();
}

double valueOf(std::string_view text) {
    double value = 0.0;
    text::Scan(text).real(value);
    return value;
}

// Characters of a candidate for the field; more than eight do not fit.
class Candidate {
  public:
    Candidate& add(std::string_view text) {
        const std::size_t count = std::min(text.size(), characters_.size() - size_);
        std::memcpy(characters_.data() + size_, text.data(), count);
        size_ += count;
        return *this;
    }
    bool fits() const { return size_ <= kWidth; }
    std::string_view text() const { return {characters_.data(), size_}; }

  private:
    std::array<char, 40> characters_;
    std::size_t size_ = 0;
};

// The better of two: nearer to the value, of those that are as near the first.
void takeBetter(const Candidate& candidate, double value, ShortReal& best) {
    if (!candidate.fits())
        return;
    // The reader puts an "E" before the minus sign of an exponent.
    std::array<char, 16> scanned;
    const std::string_view text = candidate.text();
    const std::size_t minus = text.find('-', 1);
    std::size_t size = text.copy(scanned.data(), std::min(minus, text.size()));
    if (minus != std::string_view::npos) {
        if (text[minus - 1] != 'E')
            scanned[size++] = 'E';
        size += text.copy(scanned.data() + size, kWidth, minus);
    }
    const double read = valueOf({scanned.data(), size});
    const bool isFirst = best.size == 0;
    if (!isFirst && std::abs(read - value) >= std::abs(best.value - value))
        return;
    best.size = text.copy(best.characters.data(), kWidth);
    best.value = read;
}

// "123.4567", ".0123457": as many decimals as there is room for, without zeros at the end. Does not
// fit where there is no room for a point.
Candidate fixedForm(double magnitude, std::string_view sign) {
    const int room = static_cast<int>(kWidth - sign.size());
    std::array<char, 32> digits;
    for (int decimals = room - 1; decimals >= 0;) {
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), magnitude,
                                       std::chars_format::fixed, decimals);
        if (end.ec != std::errc())
            break;
        std::string_view text(digits.data(), static_cast<std::size_t>(end.ptr - digits.data()));
        if (decimals > 0 && text[0] == '0')
            text.remove_prefix(1);
        const std::string_view point = decimals > 0 ? "" : ".";
        const int excess = static_cast<int>(text.size() + point.size()) - room;
        if (excess > 0) {
            decimals -= excess;
            continue;
        }
        if (decimals > 0)
            text = text.substr(0, text.find_last_not_of('0') + 1);
        return Candidate().add(sign).add(text == "." ? "0." : text).add(point);
    }
    return Candidate().add("too long for it");
}

// Digits and exponent of a number rounded to `count` digits; zeros at the end are dropped.
struct Digits {
    std::array<char, 32> characters;
    std::size_t size = 0;
    int exponent = 0;  // of the first digit

    std::string_view text() const { return {characters.data(), size}; }
};

Digits digitsOf(double magnitude, std::size_t count) {
    std::array<char, 64> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), magnitude,
                                   std::chars_format::scientific, static_cast<int>(count) - 1);
    Digits out;
    const char* at = text.data();
    for (; *at != 'e'; ++at)
        if (*at != '.')
            out.characters[out.size++] = *at;
    ++at;
    std::from_chars(at + (*at == '+' ? 1 : 0), end.ptr, out.exponent);
    while (out.size > 1 && out.characters[out.size - 1] == '0')
        --out.size;
    return out;
}

void addExponent(Candidate& candidate, int exponent) {
    if (exponent == 0)
        return;
    std::array<char, 8> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), exponent);
    candidate.add(exponent < 0 ? "" : "E");
    candidate.add({text.data(), static_cast<std::size_t>(end.ptr - text.data())});
}

// The digits and exponent that come nearest and fit, with a point behind the first digit or with
// none.
void takeExponentForm(bool hasPoint, double magnitude, std::string_view sign, double value,
                      ShortReal& best) {
    for (std::size_t count = kWidth; count > 0; --count) {
        const Digits digits = digitsOf(magnitude, count);
        Candidate candidate;
        candidate.add(sign).add(digits.text().substr(0, 1)).add(hasPoint ? "." : "");
        candidate.add(digits.text().substr(1));
        const int behind = hasPoint ? 0 : static_cast<int>(digits.size) - 1;
        addExponent(candidate, digits.exponent - behind);
        if (candidate.fits())
            return takeBetter(candidate, value, best);
    }
}

// "12345678"
void takeWholeForm(double magnitude, std::string_view sign, double value, ShortReal& best) {
    std::array<char, 40> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), magnitude,
                                   std::chars_format::fixed, 0);
    if (end.ec != std::errc())
        return;
    Candidate candidate;
    candidate.add(sign).add({digits.data(), static_cast<std::size_t>(end.ptr - digits.data())});
    takeBetter(candidate, value, best);
}

// "1.2346-4", "1.2346E9", and without a point, which leaves a column more for the digits:
// "12345678", "123456-9".
void takeExponentForms(double magnitude, std::string_view sign, double value, ShortReal& best) {
    takeExponentForm(true, magnitude, sign, value, best);
    takeWholeForm(magnitude, sign, value, best);
    takeExponentForm(false, magnitude, sign, value, best);
}

}  // namespace

bool readInteger(std::string_view text, long long& value) {
    const bool isNegative = !text.empty() && text[0] == '-';
    if (!text.empty() && isSign(text[0]))
        text.remove_prefix(1);
    if (text.empty())
        return false;
    long long number = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9')
            return false;
        constexpr long long kMost = std::numeric_limits<long long>::max();
        number = number > (kMost - 9) / 10 ? kMost : number * 10 + (digit - '0');
    }
    value = isNegative ? -number : number;
    return true;
}

bool readReal(std::string_view text, double& value) {
    RealParts parts;
    std::array<char, 400> scanned;
    if (!splitReal(text, parts))
        return false;
    if (parts.mantissa.size() + parts.exponent.size() >= scanned.size())
        return false;
    std::size_t size = parts.mantissa.copy(scanned.data(), parts.mantissa.size());
    if (!parts.exponent.empty()) {
        scanned[size++] = 'E';
        size += parts.exponent.copy(scanned.data() + size, parts.exponent.size());
    }
    value = valueOf({scanned.data(), size});
    return std::isfinite(value);
}

bool isPlainReal(std::string_view text) {
    RealParts parts;
    return text.size() <= kWidth && splitReal(text, parts) && parts.isPlain;
}

bool isPlainInteger(std::string_view text) {
    return !text.empty() && text.size() <= kWidth && digitsIn(text) == text.size();
}

ShortReal shortenReal(double value) {
    ShortReal best;
    const std::string_view sign = std::signbit(value) ? "-" : "";
    const double magnitude = std::abs(value);
    takeBetter(fixedForm(magnitude, sign), value, best);
    if (best.size == 0 || best.value != value) {
        // Between these, the fixed form has as many digits as any.
        const bool isBest = best.size > 0 && magnitude >= 1e-2 && magnitude < 1e7;
        if (!isBest)
            takeExponentForms(magnitude, sign, value, best);
    }
    if (best.size == 0)
        takeBetter(Candidate().add("0."), value, best);
    return best;
}

}  // namespace kvocaeio::tidy::nastran
