/// Cards of two lines.
#include "nastran/lines.h"

#include <algorithm>
#include <functional>

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
    card_.firstLine = merged_.size();
    firstPlace_ = lines_.place();
    isOwnContinuation_ = !lines_.next();
    std::string_view line = lines_.line();
    const std::size_t marker = std::min(line.substr(0, kFieldWidth).find(','), kFieldWidth);
    secondDropped_ = 0;
    if (marker <= line.size()) {
        merged_ += ',';
        secondDropped_ = std::min(marker + 1, line.size());
    }
    secondBegin_ = merged_.size();
    merged_ += line.substr(secondDropped_);
    card_.raw = merged_;
    if (canHoldName(card_.raw.substr(card_.firstLine)))
        card_.glance = {};
}

std::string_view CardLines::part(std::size_t begin, std::size_t end) const {
    if (!card_.isMerged() || begin < card_.firstLine)
        return card_.raw.substr(begin, end - begin);
    return lines_.line().substr(begin - secondBegin_ + secondDropped_, end - begin);
}

void CardLines::note(Finding kind, std::string_view subject) {
    if (card_.isMerged())
        lines_.noteAt(kind, {firstPlace_.line, 0}, firstLine(), subject);
    else
        lines_.noteNamed(kind, subject);
}

void CardLines::note(Finding kind, std::string_view field, std::string_view subject) {
    const auto offset = field.data() - card_.raw.data();
    const bool isOnFirst = std::greater_equal<>()(field.data(), card_.raw.data()) &&
                           std::less<>()(field.data(), card_.raw.data() + card_.raw.size());
    if (card_.isMerged() && isOnFirst)
        lines_.noteAt(kind,
                      {firstPlace_.line, firstPlace_.column + static_cast<std::size_t>(offset)},
                      field, subject);
    else
        lines_.note(kind, field, subject);
}

}  // namespace kvocaeio::nastran
