/// Fields put together.
#include "tidy/nastran/card.h"

#include "text/ascii.h"

namespace kvocaeio::tidy::nastran {

void Card::clear(LineInFile place) {
    text_.clear();
    fields_.clear();
    lines_.assign(1, place);
    isFreeForm = isLargeForm = hasTabs = hasOtherCase = isReplicated = false;
}

void Card::begin(const SplitLine& line, LineInFile place) {
    clear(place);
    text::foldToUpper(line.first.text, name_);
    hasOtherCase = name_ != line.first.text;
    rule_ = findCardRule(name_);
    add(line, place);
}

void Card::beginLike(const Card& other, LineInFile place) {
    clear(place);
    rule_ = other.rule_;
    name_ = other.name_;
    isReplicated = true;
}

void Card::add(const SplitLine& line, LineInFile place) {
    isFreeForm |= isFree(line.form);
    isLargeForm |= isLarge(line.form);
    hasTabs |= line.hasTabs;
    if (fields_.size() >= kMostFields)
        return;
    if (lines_.back().line != place.line || lines_.back().file != place.file)
        lines_.push_back(place);
    // A single large line before a small one has left its second half blank.
    if (!isLarge(line.form) && fields_.size() % dataFields(line.form) != 0)
        for (int i = 0; i < 4; ++i)
            push({}, 0);
    for (const Field& field : line.data)
        push(field.text, field.column);
}

void Card::addText(std::string_view text) {
    push(text, 0);
}

void Card::push(std::string_view text, std::uint32_t column) {
    if (fields_.size() >= kMostFields)
        return;
    fields_.push_back({static_cast<std::uint32_t>(text_.size()),
                       static_cast<std::uint32_t>(text.size()), column,
                       static_cast<std::uint32_t>(lines_.size() - 1)});
    text_ += text;
}

}  // namespace kvocaeio::tidy::nastran
