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

// Tells `keep` the offset of each character that stays, and `putBlanks` how many blanks stand in
// place of one that does not.
template <class Keep, class PutBlanks>
void expand(std::string_view raw, LineFeeds lineFeeds, const Keep& keep,
            const PutBlanks& putBlanks) {
    std::size_t column = 0;  // before the separators are expanded
    for (std::size_t at = 0; at < raw.size(); ++at) {
        const char c = raw[at];
        if (c == '\n' && lineFeeds == LineFeeds::kPad) {
            putBlanks(kCardColumns - std::min(column, kCardColumns));
            column = std::max(column, kCardColumns);
            continue;
        }
        if (c == ',' || c == '+')
            putBlanks(kFieldWidth);
        else
            keep(at);
        ++column;
    }
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
    expand(
        raw, lineFeeds, [&](std::size_t at) { expanded_ += raw[at]; },
        [&](std::size_t count) { expanded_.append(count, ' '); });
    characters_.clear();
    const std::string_view fields = expanded_;
    for (std::size_t at = 0; at < fields.size(); at += kFieldWidth)
        putField(fields.substr(at, kFieldWidth));
}

void CardText::findOrigins(std::string_view raw, LineFeeds lineFeeds,
                           std::vector<std::size_t>& origins) const {
    std::vector<std::size_t> expandedFrom;
    expandedFrom.reserve(expanded_.size());
    expand(
        raw, lineFeeds, [&](std::size_t at) { expandedFrom.push_back(at); },
        [&](std::size_t count) { expandedFrom.insert(expandedFrom.end(), count, kPutIn); });
    origins.clear();
    const std::string_view fields = expanded_;
    for (std::size_t at = 0; at < fields.size(); at += kFieldWidth) {
        const std::string_view field = fields.substr(at, kFieldWidth);
        if (isBlank(field)) {
            origins.insert(origins.end(), kZero.size() + 1, kPutIn);
            continue;
        }
        char before = ' ';
        for (std::size_t i = 0; i < field.size(); before = field[i++]) {
            if (needsExponent(before, field[i]))
                origins.push_back(kPutIn);
            origins.push_back(expandedFrom[at + i]);
        }
        if (field.size() == kFieldWidth)
            origins.push_back(kPutIn);
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
