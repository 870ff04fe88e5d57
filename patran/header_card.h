/// The card that begins a packet.
#pragma once

#include <string_view>

namespace kvocaeio {

/// The packets that are understood, as the header card's `it` names them.
enum PacketType : int {
    kNodePacket = 1,
    kElementPacket = 2,
    kPropertyPacket = 4,
    kTitlePacket = 25,
    kSummaryPacket = 26,
    kEndPacket = 99,
};

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

    /// Reads a card in its fixed columns.
    void readFixed(std::string_view card);
    /// Reads a card as numbers parted by white space, up to the first that cannot be read.
    void readFree(std::string_view card);
};

}  // namespace kvocaeio
