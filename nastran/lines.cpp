/// Cards of two lines.
#include "nastran/lines.h"

#include <algorithm>

namespace kvocaeio::nastran {

// A comma takes the place of the continuation's marker: of all up to the first comma, or of nine
// characters where the first eight hold none. A line that is shorter stays.
void CardLines::mergeContinuation() {
    const auto isContinued = [this](const CardRule& rule) {
        return rule.isContinued && holds(card_.raw, rule.name);
    };
    const CardRule* const known = card_.glance.rule;
    if (known != nullptr ? !known->isContinued : std::ranges::none_of(kCardRules, isContinued))
        return;
    merged_ = card_.raw;
    const std::size_t length = merged_.size();
    lines_.next();  // at the end of the deck the line is its own continuation
    std::string_view line = lines_.line();
    const std::size_t marker = std::min(line.substr(0, kFieldWidth).find(','), kFieldWidth);
    if (marker <= line.size()) {
        merged_ += ',';
        line.remove_prefix(std::min(marker + 1, line.size()));
    }
    merged_ += line;
    card_.raw = merged_;
    if (canHoldName(card_.raw.substr(length)))
        card_.glance = {};
}

}  // namespace kvocaeio::nastran
