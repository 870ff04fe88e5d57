/// Fields as the formats "%8c" with "%8d", "%16c" with `atof`, and "%16f" read them.
#include "patran/card.h"

#include "text/scan.h"

namespace kvocaeio::patran {

namespace {

// What follows the packet type, in this order.
constexpr std::array kNumbers{&HeaderCard::id, &HeaderCard::iv, &HeaderCard::kc, &HeaderCard::n1,
                              &HeaderCard::n2, &HeaderCard::n3, &HeaderCard::n4, &HeaderCard::n5};

}  // namespace

void HeaderCard::readFixed(std::string_view card) {
    OddFields oddNow = oddField(0, readInteger(card, 0, kTypeWidth, it) != FieldContent::kNumber);
    for (std::size_t i = 0; i < kNumbers.size(); ++i)
        if (readInteger(card, headerColumn(i + 1), this->*kNumbers[i]) != FieldContent::kNumber)
            [[unlikely]]
            oddNow |= oddField(i + 1);
    odd = oddNow;
}

void HeaderCard::readFree(std::string_view card) {
    text::Scan scan(card);
    bool goesOn = scan.integer(it);
    for (int HeaderCard::*const number : kNumbers)
        goesOn = goesOn && scan.integer(this->*number);
}

FieldContent readInteger(std::string_view card, std::size_t first, std::size_t width, int& number) {
    text::Scan scan(columnsOf(card, first, width));
    scan.space();
    if (scan.isAtEnd())
        return FieldContent::kBlank;
    if (!scan.integer(number))
        return FieldContent::kUnreadable;
    scan.space();
    return scan.isAtEnd() ? FieldContent::kNumber : FieldContent::kTorn;
}

std::array<float, 3> coordinatesOf(std::string_view card, OddFields& odd) {
    std::array<float, 3> coordinates;
    for (std::size_t i = 0; i < coordinates.size(); ++i) {
        const std::string_view field = columnsOf(card, i * kRealWidth, kRealWidth);
        text::Scan scan(field);
        double number = 0;
        const bool isNumber = scan.real(number);
        coordinates[i] = static_cast<float>(isNumber ? number : text::toReal(field));
        if (isNumber && scan.isAtEnd()) [[likely]]
            continue;
        scan.space();
        odd |= oddField(i, !isNumber || !scan.isAtEnd());
    }
    return coordinates;
}

std::array<float, 2> propertyValuesOf(std::string_view card, OddFields& odd) {
    std::array<float, 2> values{};
    text::Scan scan(card);
    const bool isFirst = scan.real(values[0], kRealWidth);
    const bool isSecond = isFirst && scan.real(values[1], kRealWidth);
    odd = oddField(0, !isFirst) | oddField(1, !isSecond);
    return values;
}

}  // namespace kvocaeio::patran
