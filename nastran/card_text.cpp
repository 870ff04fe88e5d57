/// The steps of the normalisation, done in one go over the fields.
#include "nastran/card_text.h"

#include <algorithm>

namespace kvocaeio::nastran {

void CardText::putField(std::string_view field) {
    if (field.find_first_not_of(' ') == std::string_view::npos)
        field = "       0";
    if (field.find('-') == std::string_view::npos) {
        characters_ += field;
    } else {
        for (const char c : field) {
            const char before = characters_.empty() ? ' ' : characters_.back();
            if (c == '-' && before != ' ' && before != 'e' && before != 'E')
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
            expanded_.append(kCardColumns - std::min(column, kCardColumns), ' ');
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
