/// The plain way, which takes every card, and where the fast ways part from it.
#include "nastran/card.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "text/scan.h"

namespace kvocaeio::nastran {

namespace {

void computePropertyValue(PropertyValue value, float& first) {
    const auto asRead = static_cast<double>(first);
    if (value == PropertyValue::kTwice)
        first = static_cast<float>(asRead * 2.0);
    else if (value == PropertyValue::kDiameter)
        first = static_cast<float>(2.0 * std::sqrt(asRead / 3.14159));
}

}  // namespace

ReadCard CardReader::read(const Card& card) {
    const CardRule* rule = card.glance.rule;
    if (rule != nullptr && readFixedFields(card.raw, *rule, numbers_))
        return {rule};
    if (card.glance.isNameless || card.isComment())
        return {};
    normalised_.normalise(card.raw, LineFeeds::kPad);
    rule = ruleIn(normalised_.view());
    if (rule == nullptr)
        return {};
    if (rule->hasFiller)
        normalised_.clearHexFiller();
    scanNumbers(*rule);
    computePropertyValue(rule->value, numbers_.floats[0]);
    return {rule, true};
}

// "%s%d%d...": stops at the first number that cannot be read.
void CardReader::scanNumbers(const CardRule& rule) {
    text::Scan scan(normalised_.view());
    endCount_ = 0;
    const auto isRead = [&](bool read) {
        if (read)
            ends_[endCount_++] = scan.position();
        return read;
    };
    std::string_view name;
    const auto integer = [&](int& value) { return isRead(scan.integer(value)); };
    const auto real = [&](auto& value) { return isRead(scan.real(value)); };
    static_cast<void>(isRead(scan.word(name)) &&
                      std::ranges::all_of(std::span(numbers_.ints).first(rule.ints()), integer) &&
                      std::ranges::all_of(std::span(numbers_.doubles).first(rule.doubles), real) &&
                      std::ranges::all_of(std::span(numbers_.floats).first(rule.floats), real));
}

CardReader::Origins CardReader::origins(const Card& card, const ReadCard& read) {
    if (!read.isNormalised) {
        normalised_.normalise(card.raw, LineFeeds::kPad);
        if (read.rule->hasFiller)
            normalised_.clearHexFiller();
        const CardNumbers kept = numbers_;
        scanNumbers(*read.rule);
        numbers_ = kept;
    }
    return Origins(*this, card.raw);
}

bool CardReader::Origins::next(NumberOrigin& origin) {
    if (++number_ >= reader_.endCount_)
        return false;
    const std::string_view view = reader_.normalised_.view();
    const char* begin = reader_.ends_[number_ - 1];
    const char* const end = reader_.ends_[number_];
    while (text::isSpace(*begin))
        ++begin;
    origin = {};
    const auto first = static_cast<std::size_t>(begin - view.data());
    const std::size_t offset = characters_.originOf(first);
    if (offset == CardText::Origins::kPutIn)
        return true;
    const auto last = static_cast<std::size_t>(end - view.data()) - 1;
    origin = {offset, last == first ? offset + 1 : characters_.originOf(last) + 1};
    return true;
}

}  // namespace kvocaeio::nastran
