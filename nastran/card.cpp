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

std::span<const NumberOrigin> CardReader::findOrigins(const Card& card, const ReadCard& read) {
    if (!read.isNormalised) {
        normalised_.normalise(card.raw, LineFeeds::kPad);
        if (read.rule->hasFiller)
            normalised_.clearHexFiller();
        const CardNumbers kept = numbers_;
        scanNumbers(*read.rule);
        numbers_ = kept;
    }
    normalised_.findOrigins(card.raw, LineFeeds::kPad, characterOrigins_);
    const std::string_view view = normalised_.view();
    const auto offsetOf = [&](const char* end) {
        return static_cast<std::size_t>(end - view.data());
    };
    for (std::size_t i = 1; i < endCount_; ++i) {
        NumberOrigin& origin = origins_[i - 1] = {};
        const std::size_t last = offsetOf(ends_[i]);
        for (std::size_t at = offsetOf(ends_[i - 1]); at < last; ++at) {
            const std::size_t from = characterOrigins_[at];
            if (text::isSpace(view[at]) || from == CardText::kPutIn)
                continue;
            if (origin.end == 0)
                origin.begin = from;
            origin.end = from + 1;
        }
    }
    return std::span(origins_).first(endCount_ == 0 ? 0 : endCount_ - 1);
}

}  // namespace kvocaeio::nastran
