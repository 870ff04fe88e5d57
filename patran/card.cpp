/// Fields as the formats "%8c" with "%8d", "%16c" with `atof`, and "%16f" read them.
#include "patran/card.h"

#include "text/scan.h"

namespace kvocaeio::patran {

namespace {

// What follows the packet type, in this order.
constexpr std::array kNumbers{&HeaderCard::id, &HeaderCard::iv, &HeaderCard::kc, &HeaderCard::n1,
                              &HeaderCard::n2, &HeaderCard::n3, &HeaderCard::n4, &HeaderCard::n5};

// The columns of a field that the card reaches.
std::string_view fieldOf(std::string_view card, std::size_t first, std::size_t width) {
    return first < card.size() ? card.substr(first, width) : std::string_view();
}

}  // namespace

void HeaderCard::readFixed(std::string_view card) {
    readInteger(card, 0, kTypeWidth, it);
    std::size_t column = kTypeWidth;
    for (int HeaderCard::*const number : kNumbers) {
        readInteger(card, column, this->*number);
        column += kIntegerWidth;
    }
}

void HeaderCard::readFree(std::string_view card) {
    text::Scan scan(card);
    bool goesOn = scan.integer(it);
    for (int HeaderCard::*const number : kNumbers)
        goesOn = goesOn && scan.integer(this->*number);
}

void readInteger(std::string_view card, std::size_t first, std::size_t width, int& number) {
    text::Scan(fieldOf(card, first, width)).integer(number);
}

std::array<float, 3> coordinatesOf(std::string_view card) {
    std::array<float, 3> coordinates;
    for (std::size_t i = 0; i < coordinates.size(); ++i)
        coordinates[i] =
            static_cast<float>(text::toReal(fieldOf(card, i * kRealWidth, kRealWidth)));
    return coordinates;
}

std::array<float, 2> propertyValuesOf(std::string_view card) {
    std::array<float, 2> values{};
    text::Scan scan(card);
    if (scan.real(values[0], kRealWidth))
        scan.real(values[1], kRealWidth);
    return values;
}

}  // namespace kvocaeio::patran
