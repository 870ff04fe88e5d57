/// The layout of a header card.
#include "patran/header_card.h"

#include <array>

#include "patran/card_fields.h"
#include "text/scan.h"

namespace kvocaeio {

namespace {

constexpr std::size_t kTypeWidth = 2;

// What stands behind the packet type, in this order.
constexpr std::array kNumbers{&HeaderCard::id, &HeaderCard::iv, &HeaderCard::kc, &HeaderCard::n1,
                              &HeaderCard::n2, &HeaderCard::n3, &HeaderCard::n4, &HeaderCard::n5};

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

}  // namespace kvocaeio
