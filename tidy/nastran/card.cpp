/// Fields put together.
#include "tidy/nastran/card.h"

#include <algorithm>
#include <utility>

#include "text/ascii.h"

namespace kvocaeio::tidy::nastran {

void Card::clear(LineInFile place) {
    text_.clear();
    fields_.clear();
    lines_.assign(1, place);
    isInColumns_ = true;
    isFreeForm = isLargeForm = hasTabs = hasOtherName = isReplicated = false;
}

void Card::begin(const SplitLine& line, LineInFile place) {
    clear(place);
    text::foldToUpper(line.first.text, name_);
    // Some programs mark elements of second order like this.
    if (name_.ends_with('_'))
        name_.pop_back();
    hasOtherName = name_ != line.first.text;
    rule_ = findCardRule(name_);
    add(line, place);
}

void Card::beginLike(const Card& other, LineInFile place) {
    clear(place);
    rule_ = other.rule_;
    name_ = other.name_;
    isInColumns_ = false;
    isReplicated = true;
}

void Card::add(const SplitLine& line, LineInFile place) {
    isFreeForm |= isFree(line.form);
    isLargeForm |= isLarge(line.form);
    hasTabs |= line.hasTabs;
    if (fieldCount() >= kMostFields)
        return;
    if (lines_.back().line != place.line || lines_.back().file != place.file)
        lines_.push_back(place);
    if (line.isInColumns() && isInColumns_) {
        text_ += line.columns;
        text_.resize(lines_.size() * dataFields(LineForm::kSmall) * kColumns, ' ');
        return;
    }
    leaveColumns();
    // A single large line before a small one has left its second half blank.
    if (!isLarge(line.form) && fields_.size() % dataFields(line.form) != 0)
        for (int i = 0; i < 4; ++i)
            push({}, 0, lines_.size() - 1);
    for (const Field& field : line.data)
        push(field.text, field.column, lines_.size() - 1);
    for (std::size_t i = 0; line.isInColumns() && i < dataFields(line.form); ++i) {
        const std::size_t at = std::min(i * kColumns, line.columns.size());
        push(trimmed(line.columns.substr(at, kColumns)),
             static_cast<std::uint32_t>((i + 1) * kColumns + 1), lines_.size() - 1);
    }
}

void Card::addText(std::string_view text) {
    push(text, 0, 0);
}

// What stands in columns becomes fields like those of other forms.
void Card::leaveColumns() {
    if (!isInColumns_)
        return;
    if (text_.empty()) {
        isInColumns_ = false;
        return;
    }
    std::vector<StoredField> fields;
    for (std::size_t i = 0; i < fieldCount(); ++i) {
        const std::string_view text = field(i);
        const auto begin = text.empty() ? 0 : text.data() - text_.data();
        fields.push_back({static_cast<std::uint32_t>(begin),
                          static_cast<std::uint32_t>(text.size()), columnOf(i),
                          static_cast<std::uint32_t>(i / dataFields(LineForm::kSmall))});
    }
    fields_ = std::move(fields);
    isInColumns_ = false;
}

void Card::push(std::string_view text, std::uint32_t column, std::size_t line) {
    if (fields_.size() >= kMostFields)
        return;
    fields_.push_back({static_cast<std::uint32_t>(text_.size()),
                       static_cast<std::uint32_t>(text.size()), column,
                       static_cast<std::uint32_t>(line)});
    text_ += text;
}

LineInFile Card::placeOf(std::size_t index) const {
    if (index >= fieldCount())
        return place();
    return lines_[isInColumns_ ? index / dataFields(LineForm::kSmall) : fields_[index].line];
}

std::uint32_t Card::columnOf(std::size_t index) const {
    const std::string_view text = field(index);
    if (text.empty())
        return 0;
    if (!isInColumns_)
        return fields_[index].column;
    const auto at = static_cast<std::size_t>(text.data() - text_.data());
    // Behind the first field of the line.
    return static_cast<std::uint32_t>(at % (dataFields(LineForm::kSmall) * kColumns) + kColumns +
                                      1);
}

}  // namespace kvocaeio::tidy::nastran
