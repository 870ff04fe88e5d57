/// Bytes in blocks, and their base64.
#include "view/base64_stream.h"

#include <bit>
#include <string>

namespace kvocaeio::host {

namespace {

constexpr std::size_t kBlock = 3 * 16384;  // whole groups of base64
constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

void Base64Stream::octet(std::uint8_t value) {
    bytes_.push_back(value);
    if (bytes_.size() == kBlock)
        flush();
}

void Base64Stream::real(double value) {
    const auto bits = std::bit_cast<std::uint32_t>(static_cast<float>(value));
    for (int shift = 0; shift < 32; shift += 8)
        octet(static_cast<std::uint8_t>(bits >> shift));
}

void Base64Stream::integers(std::span<const int> values, std::size_t width) {
    for (std::size_t i = 0; i < values.size(); ++i) {
        const int above = i < width ? 0 : values[i - width];
        const std::uint32_t difference =
            static_cast<std::uint32_t>(values[i]) - static_cast<std::uint32_t>(above);
        std::uint32_t coded = difference << 1 ^ (difference >> 31 == 0 ? 0 : 0xFFFFFFFF);
        for (; coded > 127; coded >>= 7)
            octet(static_cast<std::uint8_t>(coded & 127u) | 128u);
        octet(static_cast<std::uint8_t>(coded));
    }
}

void Base64Stream::finish() {
    flush();
}

void Base64Stream::flush() {
    std::string text;
    text.reserve(4 * (bytes_.size() + 2) / 3);
    for (std::size_t at = 0; at < bytes_.size(); at += 3) {
        const std::size_t left = bytes_.size() - at;
        const auto byte = [&](std::size_t i) -> unsigned { return i < left ? bytes_[at + i] : 0; };
        const unsigned group = byte(0) << 16 | byte(1) << 8 | byte(2);
        text += kDigits[group >> 18];
        text += kDigits[group >> 12 & 63];
        text += left > 1 ? kDigits[group >> 6 & 63] : '=';
        text += left > 2 ? kDigits[group & 63] : '=';
    }
    file_ << text;
    bytes_.clear();
}

}  // namespace kvocaeio::host
