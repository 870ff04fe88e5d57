/// Numbers in as few digits as hold them.
#include "tidy/abaqus/line_writer.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace kvocaeio::tidy::abaqus {

namespace {

constexpr int kDecimals = 9;
constexpr double kScale = 1e9;
// Up to here a decimal number of that many digits is the shortest one of its double.
constexpr double kMostScaled = 1e15;

// Writes a number that has few decimals, as most coordinates have, several times as fast as any
// other. Null where it has more.
char* writeDecimal(double value, char* to, char* end) {
    const double scaled = std::nearbyint(value * kScale);
    if (!(std::abs(scaled) < kMostScaled) || scaled / kScale != value || scaled == 0.0)
        return nullptr;
    auto digits = static_cast<std::int64_t>(std::abs(scaled));
    if (digits < 100'000)  // 0.0001 and less are shorter with an exponent
        return nullptr;
    if (value < 0.0)
        *to++ = '-';
    int decimals = kDecimals;
    while (decimals > 0 && digits % 10 == 0) {
        digits /= 10;
        --decimals;
    }
    std::array<char, 24> text;
    char* const last = std::to_chars(text.data(), text.data() + text.size(), digits).ptr;
    const auto count = static_cast<int>(last - text.data());
    if (end - to < count + kDecimals)
        return nullptr;
    const int whole = std::max(count - decimals, 0);
    to = std::copy_n(text.data(), whole, to);
    if (whole == 0)
        *to++ = '0';
    if (decimals > 0)
        *to++ = '.';
    to = std::fill_n(to, std::max(decimals - count, 0), '0');
    return std::copy(text.data() + whole, last, to);
}

}  // namespace

void LineWriter::beginField() {
    if (isFull()) {
        *end_++ = ',';
        finish();
    }
    if (fields_++ > 0)
        text(", ");
}

LineWriter& LineWriter::integer(std::int64_t value) {
    beginField();
    end_ = std::to_chars(end_, buffer_.data() + buffer_.size(), value).ptr;
    return *this;
}

LineWriter& LineWriter::real(double value) {
    beginField();
    char* const bufferEnd = buffer_.data() + buffer_.size();
    char* const decimal = writeDecimal(value, end_, bufferEnd);
    end_ = decimal != nullptr ? decimal : std::to_chars(end_, bufferEnd, value).ptr;
    return *this;
}

LineWriter& LineWriter::text(std::string_view value) {
    end_ = std::ranges::copy(value, end_).out;
    return *this;
}

void LineWriter::finish() {
    *end_++ = '\n';
    out_.text({buffer_.data(), static_cast<std::size_t>(end_ - buffer_.data())});
    end_ = buffer_.data();
    fields_ = 0;
}

}  // namespace kvocaeio::tidy::abaqus
