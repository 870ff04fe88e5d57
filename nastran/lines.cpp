/// Cards of two lines.
#include "nastran/lines.h"

#include <algorithm>

namespace kvocaeio::nastran {

namespace {

// Puts a continuation line behind the card. A comma takes the place of its marker: of all up to the
// first comma, or of nine characters where the first eight hold none. A line that is shorter stays.
void appendContinuation(std::string_view line, std::string& card) {
    const std::size_t comma = line.substr(0, kFieldWidth).find(',');
    if (comma == std::string_view::npos && line.size() < kFieldWidth) {
        card += line;
        return;
    }
    const std::size_t marker = std::min(comma, kFieldWidth);
    card += ',';
    card += line.substr(std::min(marker + 1, line.size()));
}

}  // namespace

bool CardLines::holdsContinuedName(std::string_view line) {
    return std::ranges::any_of(kCardRules, [line](const CardRule& rule) {
        return rule.isContinued && holds(line, rule.name);
    });
}

void CardLines::mergeNextLine() {
    merged_ = card_.raw;
    lines_.next();  // at the end of the deck the line is its own continuation
    if (!lines_.line().empty())
        appendContinuation(lines_.line(), merged_);
    const std::string_view raw = merged_;
    if (canHoldName(raw.substr(card_.raw.size())))
        card_.glance = {};
    card_.raw = raw;
}

}  // namespace kvocaeio::nastran
