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
    const bool isComplete = scanNumbers(*rule);
    computePropertyValue(rule->value, numbers_.floats[0]);
    return {rule, isComplete};
}

// "%s%d%d...": stops at the first number that cannot be read.
bool CardReader::scanNumbers(const CardRule& rule) {
    text::Scan scan(normalised_.view());
    std::string_view name;
    const auto integer = [&](int& value) { return scan.integer(value); };
    const auto real = [&](auto& value) { return scan.real(value); };
    return scan.word(name) &&
           std::ranges::all_of(std::span(numbers_.ints).first(rule.ints()), integer) &&
           std::ranges::all_of(std::span(numbers_.doubles).first(rule.doubles), real) &&
           std::ranges::all_of(std::span(numbers_.floats).first(rule.floats), real);
}

}  // namespace kvocaeio::nastran
