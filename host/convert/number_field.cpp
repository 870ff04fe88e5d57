/// Digits from the standard library, brought into the shortest form.
#include "convert/number_field.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace kvocaeio::host {

/// A number as 0.digits times ten to the exponent, without zeros at either end.
struct NumberField::Digits {
    std::array<char, 17> digits{};
    int count = 0;
    int exponent = 0;
    bool isNegative = false;
    double value = 0.0;  ///< what is read from the digits

    /// Takes the text of a number in the form 1.25e-03.
    explicit Digits(std::string_view text) {
        std::from_chars(text.data(), text.data() + text.size(), value);
        isNegative = text.front() == '-';
        const std::size_t letter = text.find('e');
        for (const char c : text.substr(0, letter))
            if (c >= '0' && c <= '9')
                digits[static_cast<std::size_t>(count++)] = c;
        while (count > 1 && digits[static_cast<std::size_t>(count - 1)] == '0')
            --count;
        const char* const sign = text.data() + letter + 1;
        std::from_chars(*sign == '+' ? sign + 1 : sign, text.data() + text.size(), exponent);
        exponent = digits[0] == '0' ? 1 : exponent + 1;
    }

    /// Characters that the number takes without an exponent, the point among them.
    int fixedSize() const {
        return isNegative + 1 + (exponent <= 0 ? count - exponent : std::max(count, exponent));
    }
};

namespace {

using Text = std::array<char, 32>;

/// In the form 1.25e-03; with the shortest digits where `places` is negative.
std::string_view scientific(double value, int places, Text& room) {
    char* const end = room.data() + room.size();
    const auto result =
        places < 0 ? std::to_chars(room.data(), end, value, std::chars_format::scientific)
                   : std::to_chars(room.data(), end, value, std::chars_format::scientific, places);
    return {room.data(), static_cast<std::size_t>(result.ptr - room.data())};
}

}  // namespace

std::string_view NumberField::write(double value) {
    written_ = value;
    Text room;
    const Digits shortest(scientific(value, -1, room));
    if (fits(shortest))
        return {text_.data(), size_};
    for (int places = std::min(shortest.count - 2, static_cast<int>(width_)); places >= 0;
         --places) {
        const Digits rounded(scientific(value, places, room));
        if (!fits(rounded))
            continue;
        written_ = rounded.value;
        largestChange_ = std::max(largestChange_, std::fabs(written_ - value));
        break;
    }
    return {text_.data(), size_};
}

/// Puts the digits into the text where they fit in one of the forms.
bool NumberField::fits(const Digits& digits) {
    const int fixed = digits.fixedSize();
    if (fixed <= static_cast<int>(width_) && fixed <= digits.count + 7) {
        put(digits, true, "");
        return true;
    }
    put(digits, false, "E");
    if (size_ > width_ && !withLetter_)
        put(digits, false, "");
    if (size_ > width_ && fixed <= static_cast<int>(width_))
        put(digits, true, "");
    return size_ <= width_;
}

void NumberField::put(const Digits& digits, bool isFixed, std::string_view letter) {
    char* at = text_.data();
    const auto count = digits.count;
    const auto take = [&](int from, int to) {
        at = std::copy(digits.digits.begin() + from, digits.digits.begin() + to, at);
    };
    if (digits.isNegative)
        *at++ = '-';
    const int before = isFixed ? std::clamp(digits.exponent, 0, count) : 1;
    take(0, before);
    if (isFixed && digits.exponent > count)
        at = std::fill_n(at, digits.exponent - count, '0');
    *at++ = '.';
    if (isFixed && digits.exponent < 0)
        at = std::fill_n(at, -digits.exponent, '0');
    take(before, count);
    if (!isFixed) {
        at = std::copy(letter.begin(), letter.end(), at);
        const int exponent = digits.exponent - 1;
        if (exponent >= 0)
            *at++ = '+';
        at = std::to_chars(at, text_.data() + text_.size(), exponent).ptr;
    }
    size_ = static_cast<std::size_t>(at - text_.data());
}

}  // namespace kvocaeio::host
