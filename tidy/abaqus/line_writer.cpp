/// Numbers in as few digits as hold them.
#include "tidy/abaqus/line_writer.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace kvocaeio::tidy::abaqus {

namespace {

constexpr std::int64_t kScale = 1'000'000'000;  // nine decimals
// Up to here a decimal number of that many digits is the shortest one of its double.
constexpr double kMostScaled = 1e15;

// Writes a number that has few decimals, as most coordinates have, several times as fast as any
// other. Null where it has more.
char* writeDecimal(double value, char* to, char* end) {
    const double size = std::abs(value) * static_cast<double>(kScale);
    // Less than 0.0001 is shorter with an exponent.
    if (!(size >= 1e5 && size < kMostScaled))
        return nullptr;
    const auto digits = static_cast<std::int64_t>(std::nearbyint(size));
    if (static_cast<double>(digits) / static_cast<double>(kScale) != std::abs(value))
        return nullptr;
    if (value < 0.0)
        *to++ = '-';
    to = std::to_chars(to, end, static_cast<std::uint32_t>(digits / kScale)).ptr;
    const auto decimals = static_cast<std::uint32_t>(digits % kScale);
    if (decimals == 0)
        return to;
    // A digit in front keeps the zeros after the point, and then becomes the point.
    char* const point = to;
    to = std::to_chars(to, end, static_cast<std::uint32_t>(kScale) + decimals).ptr;
    *point = '.';
    while (to[-1] == '0')
        --to;
    return to;
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
