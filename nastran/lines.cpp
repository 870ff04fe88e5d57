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
    isOwnContinuation_ = !lines_.next();
    if (areNoted() && !isOwnContinuation_)
        nextColumn_ = isPiece(lines_.line()) ? nextColumn_ + lines_.line().size() : 1;
    const std::string_view line = lines_.line();
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

void CardLines::countColumns() {
    firstColumn_ = nextColumn_;
    nextColumn_ = isPiece(card_.raw) ? firstColumn_ + card_.raw.size() : 1;
}

// Of a merged card, by its second line: to ask for the place of each line would be slow.
text::LinePlace CardLines::firstPlace() {
    const bool isOnSameLine = isOwnContinuation_ || isPiece(firstLine());
    return {lines_.place().line - (isOnSameLine ? 0 : 1), firstColumn_};
}

std::string_view CardLines::part(std::size_t begin, std::size_t end) const {
    if (!card_.isMerged() || begin < card_.firstLine)
        return card_.raw.substr(begin, end - begin);
    return lines_.line().substr(begin - secondBegin_ + secondDropped_, end - begin);
}

void CardLines::note(Finding kind, std::string_view subject) {
    if (card_.isMerged())
        lines_.noteAt(kind, {firstPlace().line, 0}, firstLine(), subject);
    else
        lines_.noteNamed(kind, subject);
}

void CardLines::note(Finding kind, std::string_view field, std::string_view subject) {
    const bool isOnFirst = std::greater_equal<>()(field.data(), card_.raw.data()) &&
                           std::less<>()(field.data(), card_.raw.data() + card_.raw.size());
    if (!card_.isMerged() || !isOnFirst)
        return lines_.note(kind, field, subject);
    text::LinePlace place = firstPlace();
    place.column += static_cast<std::size_t>(field.data() - card_.raw.data());
    lines_.noteAt(kind, place, field, subject);
}

}  // namespace kvocaeio::nastran
