/// The cards of a neutral file: the header card of a packet, and numbers in fixed columns.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "text/eight_columns.h"

namespace kvocaeio::patran {

inline constexpr std::size_t kTypeWidth = 2;
inline constexpr std::size_t kIntegerWidth = 8;
inline constexpr std::size_t kRealWidth = 16;

/// The packets that are understood, as the header card's `it` names them.
enum PacketType : int {
    kNodePacket = 1,
    kElementPacket = 2,
    kPropertyPacket = 4,
    kTitlePacket = 25,
    kSummaryPacket = 26,
    kEndPacket = 99,
};

/// What stands in a field that is to hold one number.
enum class FieldContent : unsigned char {
    kNumber,
    kBlank,
    kTorn,        ///< a number, and more behind it
    kUnreadable,  ///< no number
};

/// The fields of one card that hold something else than their number, a bit for each.
using OddFields = unsigned;

constexpr OddFields oddField(std::size_t field, bool isOdd = true) {
    return isOdd ? 1U << field : 0U;
}

/// The columns of a field that the card reaches.
inline std::string_view columnsOf(std::string_view card, std::size_t first, std::size_t width) {
    return first < card.size() ? card.substr(first, width) : std::string_view();
}

/// The numbers of the header cards read so far. They are not cleared between cards: a field that
/// cannot be read keeps the number of the header before, so that a blank line repeats that packet.
struct HeaderCard {
    int it = 0;  ///< packet type
    int id = 0;  ///< of the node, element or property
    int iv = 0;  ///< shape code of an element
    int kc = 0;  ///< number of data cards that follow
    int n1 = 0;
    int n2 = 0;
    int n3 = 0;
    int n4 = 0;
    int n5 = 0;
    /// Of the card read last in fixed columns, in the order of the numbers.
    OddFields odd = 0;

    /// Reads a card in its fixed columns.
    void readFixed(std::string_view card);
    /// Reads a card as numbers separated by white space, up to the first that cannot be read.
    void readFree(std::string_view card);
};

/// Where the columns of a header's field begin; the packet type is field 0, N5 is field 8.
constexpr std::size_t headerColumn(std::size_t field) {
    return field == 0 ? 0 : kTypeWidth + (field - 1) * kIntegerWidth;
}

/// Reads the integer in the columns from `first` on. A field that the card does not reach, or that
/// holds no digits, leaves `number` as it is; a field that the card's end cuts counts as it stands.
FieldContent readInteger(std::string_view card, std::size_t first, std::size_t width, int& number);

/// The same for eight columns. Nearly all hold blanks and then digits.
inline FieldContent readInteger(std::string_view card, std::size_t first, int& number) {
    if (card.size() < first + kIntegerWidth || !text::readEightColumns(card.data() + first, number))
        return readInteger(card, first, kIntegerWidth, number);
    return FieldContent::kNumber;
}

/// The integers in the first columns of a card, eight each; 0 where there is none. A blank field is
/// not odd.
template <std::size_t kCount>
std::array<int, kCount> integersOf(std::string_view card, OddFields& odd) {
    std::array<int, kCount> integers{};
    for (std::size_t i = 0; i < kCount; ++i) {
        if (readInteger(card, i * kIntegerWidth, integers[i]) > FieldContent::kBlank) [[unlikely]]
            odd |= oddField(i);
    }
    return integers;
}

/// x, y, z in the first columns of a card, sixteen each; 0 where there is none.
std::array<float, 3> coordinatesOf(std::string_view card, OddFields& odd);

/// The first two reals of a property card, which are separated by white space or by their width; 0
/// from the first one on that cannot be read.
std::array<float, 2> propertyValuesOf(std::string_view card, OddFields& odd);

}  // namespace kvocaeio::patran
