/// The steps of the normalisation, done in one go over the fields.
#include "nastran/card_text.h"

#include <algorithm>

namespace kvocaeio::nastran {

namespace {

constexpr std::string_view kZero = "       0";

bool isBlank(std::string_view field) {
    return field.find_first_not_of(' ') == std::string_view::npos;
}

bool needsExponent(char before, char c) {
    return c == '-' && before != ' ' && before != 'e' && before != 'E';
}

// The blanks in place of a line feed in that column, before the separators are expanded.
std::size_t paddingAt(std::size_t column) {
    return kCardColumns - std::min(column, kCardColumns);
}

}  // namespace

void CardText::putField(std::string_view field) {
    if (isBlank(field))
        field = kZero;
    if (field.find('-') == std::string_view::npos) {
        characters_ += field;
    } else {
        for (const char c : field) {
            const char before = characters_.empty() ? ' ' : characters_.back();
            if (needsExponent(before, c))
                characters_ += 'E';
            characters_ += c;
        }
    }
    if (field.size() == kFieldWidth)
        characters_ += ' ';
}

void CardText::normalise(std::string_view raw, LineFeeds lineFeeds) {
    expanded_.clear();
    std::size_t column = 0;  // before the separators are expanded
    for (const char c : raw) {
        if (c == '\n' && lineFeeds == LineFeeds::kPad) {
            expanded_.append(paddingAt(column), ' ');
            column = std::max(column, kCardColumns);
            continue;
        }
        if (c == ',' || c == '+')
            expanded_.append(kFieldWidth, ' ');
        else
            expanded_ += c;
        ++column;
    }
    characters_.clear();
    const std::string_view fields = expanded_;
    for (std::size_t at = 0; at < fields.size(); at += kFieldWidth)
        putField(fields.substr(at, kFieldWidth));
}

std::size_t CardText::Origins::originOf(std::size_t position) {
    for (;; group_ += kFieldWidth) {
        const std::string_view field = expanded_.substr(group_, kFieldWidth);
        const bool isFiller = isBlank(field);
        std::size_t next = normalisedGroup_;
        char before = ' ';
        for (std::size_t i = 0; i < field.size() && !isFiller; before = field[i++]) {
            if (needsExponent(before, field[i]))
                ++next;
            if (next == position)
                return rawOffset(group_ + i);
            if (next++ > position)
                return kPutIn;
        }
        // A blank follows a whole field.
        next += isFiller ? kZero.size() + 1 : 1U;
        if (position < next || field.size() < kFieldWidth)
            return kPutIn;
        normalisedGroup_ = next;
    }
}

std::size_t CardText::Origins::rawOffset(std::size_t expandedOffset) {
    for (;; ++at_) {
        const char c = raw_[at_];
        const bool isPadded = c == '\n' && lineFeeds_ == LineFeeds::kPad;
        const std::size_t width = isPadded               ? paddingAt(column_)
                                  : c == ',' || c == '+' ? kFieldWidth
                                                         : 1;
        if (expandedAt_ + width > expandedOffset)
            return at_;
        expandedAt_ += width;
        column_ = isPadded ? std::max(column_, kCardColumns) : column_ + 1;
    }
}

void CardText::clearHexFiller() {
    constexpr std::size_t kLabelLength = 16;  // what an "EL" label takes along, from its "L" on
    char* const last = characters_.data() + characters_.size();
    bool kept = false;
    char before = '\0';
    for (char* at = characters_.data(); at != last; before = *at++) {
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
