/// What is noted of the packets while they are stored: of their headers, their number and the
/// file's end.
#pragma once

#include <cstddef>
#include <string_view>

#include "patran/card.h"
#include "patran/lines.h"

namespace kvocaeio::patran {

/// How many packets of each kind are stored so far, or are to be stored.
struct PacketCounts {
    int nodes = 0;
    int elements = 0;
    int properties = 0;
};

/// Told of each header of the pass that stores, before the packet's cards are read. All that it
/// does happens while somebody listens.
class PacketNotes {
  public:
    explicit PacketNotes(PacketLines& lines) : lines_(lines) {}

    /// Whether one more packet is stored. One that the summary does not count is no longer a
    /// packet: its data cards are read as headers.
    bool isCounted(int read, int count) {
        const bool isStored = read < count;
        header(isStored);
        return isStored;
    }

    /// A packet that is stored, obeyed or skipped, or one that has no effect.
    void header(bool hasEffect = true) {
        if (lines_.areNoted()) [[unlikely]]
            noteHeader(hasEffect);
    }

    /// The end of the pass, with or without a packet 99.
    void end(bool foundEnd, const PacketCounts& read, const PacketCounts& counted) {
        if (lines_.areNoted()) [[unlikely]]
            noteEnd(foundEnd, read, counted);
    }

  private:
    void noteHeader(bool hasEffect);
    void notePacket(bool hasEffect);
    bool isCardBefore();
    void noteFields();
    void noteField(std::size_t field);
    void noteOtherPacket();
    void noteSummary();
    void noteEnd(bool foundEnd, const PacketCounts& read, const PacketCounts& counted);
    void noteFewer(std::string_view what, Finding finding, int read, int counted);

    PacketLines& lines_;
    // Of a packet whose header counts more cards than are read of it, 0 without one.
    std::size_t lastCardLine_ = 0;
    bool wasStored_ = false;
    std::string_view nameBefore_;
    bool hasSummary_ = false;
    bool isEndNoted_ = false;
    text::LinePlace summaryPlace_;
};

// Notes of the line taken last, which the readers of packets call where something is odd, or where
// somebody listens.

/// The odd ones among the fields of a card, which are `width` wide.
void noteOddFields(PacketLines& lines, OddFields odd, std::size_t width);
/// The two values of a property that cannot be read.
void noteOddValues(PacketLines& lines, OddFields odd);
/// Nodes behind the first `kept` on the card of an element of the present header's shape.
void noteDroppedNodes(PacketLines& lines, std::size_t kept);
/// What is wrong with the id of a node, on its header card.
void noteNodeId(PacketLines& lines, bool isDefined, bool isInMap);
/// A shape that is not known, on the header card.
void noteShape(PacketLines& lines);
/// What is wrong with the header of a property, which has been read once more in free form.
void notePropertyHeader(PacketLines& lines, const HeaderCard& inColumns, bool isKept,
                        bool isDefined);

}  // namespace kvocaeio::patran
