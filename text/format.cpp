/// Fields of the printf formats by `std::to_chars`, gathered in blocks.
#include "text/format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <utility>

#include "text/eight_columns.h"
#include "text/powers_of_ten.h"

namespace kvocaeio::text {

namespace {

// A sign, the digits of the largest real before its point, the point and the decimals.
constexpr std::size_t kLongestReal =
    1 + (std::numeric_limits<double>::max_exponent10 + 1) + 1 + Writer::kMaxDecimals;

using RealField = char[kLongestReal];

// Infinity and NaN, which `std::to_chars` need not write as the C library does.
std::string_view nameOf(double value, std::string_view infinity, std::string_view nan) {
    const std::string_view name = std::isnan(value) ? nan : infinity;
    return name.substr(std::signbit(value) ? 0 : 1);
}

/// Seven digits and the power of ten of the first one.
struct SevenDigits {
    int digits;
    int exponent;
};

// One product or quotient gives the digits and what is behind them, with an error below 1e-8. None
// where that does not tell whether they are rounded up, nor for extreme values.
std::optional<SevenDigits> sevenDigits(double magnitude) {
    if (!(magnitude >= 1e-15 && magnitude < 1e22))
        return std::nullopt;
    constexpr double kLog10Of2 = 0.30103;
    const auto scaledTo = [magnitude](int exponent) {
        const int power = 6 - exponent;
        return power >= 0 ? magnitude * kPowersOfTen[power] : magnitude / kPowersOfTen[-power];
    };
    auto exponent = static_cast<int>(std::floor(std::ilogb(magnitude) * kLog10Of2));
    double scaled = scaledTo(exponent);
    if (scaled >= 1e7)  // the exponent of two had it one too low
        scaled = scaledTo(++exponent);
    auto digits = static_cast<int>(scaled);
    const double rest = scaled - digits;
    if (std::abs(rest - 0.5) < 1e-8)
        return std::nullopt;
    digits += rest > 0.5 ? 1 : 0;
    if (digits == 10'000'000)
        return SevenDigits{1'000'000, exponent + 1};
    return SevenDigits{digits, exponent};
}

}  // namespace

Writer::Writer(std::FILE* file)
    : file_(file),
      buffer_(std::make_unique_for_overwrite<char[]>(kCapacity)),
      position_(buffer_.get()) {}

Writer& Writer::integer(int value, int width) {
    if (width <= 8 && room() >= 8)
        if (char* const behind = writeEightColumns(position_, value, width)) {
            position_ = behind;
            return *this;
        }
    char digits[std::numeric_limits<int>::digits10 + 2];
    return field(digits, std::to_chars(digits, std::end(digits), value).ptr, width);
}

Writer& Writer::fixed(double value, int decimals, int width) {
    if (!std::isfinite(value))
        return field(nameOf(value, "-inf", "-nan"), width);
    RealField digits;
    const auto written = std::to_chars(digits, std::end(digits), value, std::chars_format::fixed,
                                       std::min(decimals, kMaxDecimals));
    return field(digits, written.ptr, width);
}

Writer& Writer::scientific(double value, int width) {
    if (!std::isfinite(value))
        return field(nameOf(value, "-INF", "-NAN"), width);
    if (const std::optional<SevenDigits> seven = sevenDigits(std::abs(value))) {
        char text[] = "-d.ddddddE+dd";
        std::to_chars(text + 2, text + 9, seven->digits);
        text[1] = std::exchange(text[2], '.');
        text[10] = seven->exponent < 0 ? '-' : '+';
        text[11] = static_cast<char>('0' + std::abs(seven->exponent) / 10);
        text[12] = static_cast<char>('0' + std::abs(seven->exponent) % 10);
        return field(std::string_view(text).substr(std::signbit(value) ? 0 : 1), width);
    }
    RealField digits;
    const auto written =
        std::to_chars(digits, std::end(digits), value, std::chars_format::scientific, 6);
    *std::find(digits, written.ptr, 'e') = 'E';
    return field(digits, written.ptr, width);
}

Writer& Writer::field(std::string_view value, int width) {
    for (auto blanks = width - static_cast<int>(value.size()); blanks > 0; --blanks)
        character(' ');
    return text(value);
}

Writer& Writer::field(const char* first, const char* last, int width) {
    return field(std::string_view(first, static_cast<std::size_t>(last - first)), width);
}

// What does not fit the buffer goes on in pieces.
Writer& Writer::longText(std::string_view value) {
    while (!value.empty()) {
        if (room() == 0)
            drain();
        const std::size_t count = std::min(value.size(), room());
        position_ = std::copy_n(value.data(), count, position_);
        value.remove_prefix(count);
    }
    return *this;
}

void Writer::drain() noexcept {
    const auto size = static_cast<std::size_t>(position_ - buffer_.get());
    position_ = buffer_.get();
    if (!failed_ && size > 0)
        failed_ = std::fwrite(buffer_.get(), 1, size, file_) != size;
}

bool Writer::flush() noexcept {
    drain();
    if (!failed_)
        failed_ = std::fflush(file_) != 0;
    return !failed_;
}

}  // namespace kvocaeio::text
