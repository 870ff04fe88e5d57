/// The steps of the normalisation, done in one go over the fields.
#include "nastran/card_text.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace kvocaeio::nastran {

namespace {

constexpr std::size_t kLabelLength = 16;  // what an "EL" label takes along, from its "L" on

// Collects the characters of a text into fields.
class Field {
  public:
    // True when the field is full.
    bool put(char c) {
        characters_[length_++] = c;
        return length_ == kFieldWidth;
    }
    void clear() { length_ = 0; }
    const char* data() const { return characters_.data(); }
    std::size_t length() const { return length_; }

  private:
    std::array<char, kFieldWidth> characters_;
    std::size_t length_ = 0;
};

bool isBlank(const char* field, std::size_t length) {
    return std::all_of(field, field + length, [](char c) { return c == ' '; });
}

}  // namespace

void CardText::putField(const char* field, std::size_t length) {
    static constexpr std::string_view kZero = "       0";
    if (isBlank(field, length)) {
        field = kZero.data();
        length = kZero.size();
    }
    char* to = text_.data() + length_;
    if (std::memchr(field, '-', length) == nullptr) {
        to = std::copy_n(field, length, to);
    } else {
        char before = length_ == 0 ? ' ' : to[-1];
        for (std::size_t i = 0; i < length; ++i) {
            if (field[i] == '-' && before != ' ' && before != 'e' && before != 'E')
                *to++ = 'E';
            *to++ = before = field[i];
        }
    }
    if (length == kFieldWidth)
        *to++ = ' ';
    length_ = static_cast<std::size_t>(to - text_.data());
}

void CardText::normalise(std::string_view raw, LineFeeds lineFeeds) {
    // At the most every character is a separator, and every character of the result a minus sign.
    const std::size_t most = 3 * (kFieldWidth * raw.size() + kCardColumns);
    if (text_.size() < most)
        text_.resize(most);
    length_ = 0;
    Field field;
    const auto put = [&](char c, std::size_t count) {
        for (; count > 0; --count)
            if (field.put(c)) {
                putField(field.data(), kFieldWidth);
                field.clear();
            }
    };
    std::size_t column = 0;  // before the separators are expanded
    for (const char c : raw) {
        if (c == '\n' && lineFeeds != LineFeeds::kKeep) {
            if (column < kCardColumns && lineFeeds == LineFeeds::kPad) {
                put(' ', kCardColumns - column);
                column = kCardColumns;
            }
            continue;
        }
        const bool separator = c == ',' || c == '+';
        put(separator ? ' ' : c, separator ? kFieldWidth : 1);
        ++column;
    }
    if (field.length() > 0)
        putField(field.data(), field.length());
}

void CardText::clearHexFiller(char before) {
    char* const first = text_.data();
    char* const last = first + length_;
    bool kept = false;
    for (char* at = first; at != last; before = *at++) {
        const bool zero = *at == '0' && before == ' ';
        const bool label = *at == 'E' && at + 1 != last && at[1] == 'L';
        if (!zero && !label)
            continue;
        if (kept)
            *at = ' ';
        kept = true;
        if (label)
            std::fill_n(at + 1, std::min(static_cast<std::size_t>(last - at - 1), kLabelLength),
                        ' ');
    }
}

}  // namespace kvocaeio::nastran
