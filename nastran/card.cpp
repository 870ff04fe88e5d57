/// The plain way, which takes every card, and where the fast ways part from it.
#include "nastran/card.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "nastran/fixed_fields.h"
#include "text/scan.h"

namespace kvocaeio::nastran {

ReadCard CardReader::read(const Card& card) {
    const CardRule* const rule = card.glance.rule;
    if (rule != nullptr && readFixedFields(card.raw, *rule, numbers_))
        return {rule};
    if (card.glance.isNameless || card.isComment())
        return {};
    return readNormalised(card.raw);
}

ReadCard CardReader::readNormalised(std::string_view raw) {
    normalised_.normalise(raw, LineFeeds::kPad);
    const CardRule* const rule = ruleIn(normalised_.view());
    if (rule == nullptr)
        return {};
    if (rule->hasFiller)
        normalised_.clearHexFiller();
    const bool isComplete = scanNumbers(*rule);
    if (rule->floats > 0)
        computePropertyValue(rule->value);
    return {rule, isComplete};
}

// "%s%d%d...": stops at the first number that cannot be read.
bool CardReader::scanNumbers(const CardRule& rule) {
    text::Scan scan(normalised_.view());
    std::string_view name;
    const auto integer = [&](int& value) { return scan.integer(value); };
    const auto real = [&](auto& value) { return scan.real(value); };
    return scan.word(name) &&
           std::ranges::all_of(std::span(numbers_.ints).first(rule.ints), integer) &&
           std::ranges::all_of(std::span(numbers_.doubles).first(rule.doubles), real) &&
           std::ranges::all_of(std::span(numbers_.floats).first(rule.floats), real);
}

void CardReader::computePropertyValue(PropertyValue value) {
    float& first = numbers_.floats[0];
    switch (value) {
        case PropertyValue::kAsRead:
            break;
        case PropertyValue::kTwice:
            first = static_cast<float>(static_cast<double>(first) * 2.0);
            break;
        case PropertyValue::kDiameter:
            first = static_cast<float>(2.0 * std::sqrt(static_cast<double>(first) / 3.14159));
            break;
    }
}

}  // namespace kvocaeio::nastran
