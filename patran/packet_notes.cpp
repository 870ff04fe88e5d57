/// Notes of headers and cards: out of the way of the readers, since nobody listens to most imports.
#include "patran/packet_notes.h"

#include <algorithm>
#include <array>
#include <string>

#include "text/scan.h"

namespace kvocaeio::patran {

namespace {

enum HeaderField : std::size_t { kType, kId, kShape, kCards, kN1, kN2, kN3, kN4, kFieldCount };

constexpr std::array<std::string_view, kFieldCount> kFieldNames{"IT", "ID", "IV", "KC",
                                                                "N1", "N2", "N3", "N4"};

// A packet that is read: its names, how many data cards are taken, and the fields of its header
// that are read in fixed columns.
struct ReadPacket {
    PacketType type;
    std::string_view name;
    std::string_view plural;
    int cards;
    OddFields fields;
};

constexpr std::array kReadPackets{
    ReadPacket{kNodePacket, "node", "nodes", 2, oddField(kId)},
    ReadPacket{kElementPacket, "element", "elements", 2, oddField(kShape)},
    ReadPacket{kPropertyPacket, "property", "properties", 1, 0},
    ReadPacket{kTitlePacket, "title", "titles", 1, 0},
    ReadPacket{kSummaryPacket, "summary", "summaries", 1,
               oddField(kN1) | oddField(kN2) | oddField(kN4)},
};

// Packets of the format that are skipped.
struct SkippedPacket {
    int first;
    int last;
    std::string_view name;
};

constexpr std::array kSkippedPackets{
    SkippedPacket{3, 3, "3 (materials)"},
    SkippedPacket{5, 5, "5 (coordinate frames)"},
    SkippedPacket{6, 6, "6 (distributed loads)"},
    SkippedPacket{7, 7, "7 (node forces)"},
    SkippedPacket{8, 8, "8 (node displacements)"},
    SkippedPacket{9, 9, "9 (bar element displacements)"},
    SkippedPacket{10, 10, "10 (node temperatures)"},
    SkippedPacket{11, 11, "11 (element temperatures)"},
    SkippedPacket{12, 14, "12 to 14 (degrees of freedom, multi-point equations)"},
    SkippedPacket{15, 20, "15 to 20 (thermal boundary conditions)"},
    SkippedPacket{21, 21, "21 (named components)"},
    SkippedPacket{22, 24, "22 to 24"},
    SkippedPacket{27, 47, "27 to 47 (geometry)"},
};

// What is read of a shape's nodes by the list reader and by the flat one.
struct ReadNodes {
    int shape;
    std::string_view four;
    std::string_view eight;
};

constexpr std::array kReadNodes{
    ReadNodes{2, "4 nodes of a bar", "8 nodes of a bar"},
    ReadNodes{3, "4 nodes of a triangle", "8 nodes of a triangle"},
    ReadNodes{4, "4 nodes of a quadrilateral", "8 nodes of a quadrilateral"},
    ReadNodes{5, "4 nodes of a tetrahedron", "8 nodes of a tetrahedron"},
    ReadNodes{7, "4 nodes of a wedge", "8 nodes of a wedge"},
    ReadNodes{8, "4 nodes of a hexahedron", "8 nodes of a hexahedron"},
    ReadNodes{0, "4 nodes of an element of another shape",
              "8 nodes of an element of another shape"},
};

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r\n\v\f";

std::string_view withoutBlanks(std::string_view field) {
    const std::size_t first = std::min(field.find_first_not_of(kBlanks), field.size());
    return field.substr(first, field.find_last_not_of(kBlanks) + 1 - first);
}

const ReadPacket* readPacket(int type) {
    const auto* const row = std::ranges::find(kReadPackets, type, &ReadPacket::type);
    return row == kReadPackets.end() ? nullptr : row;
}

// Whether the field is a number whose exponent has another letter than E, or none.
bool hasOtherExponent(std::string_view field) {
    constexpr auto kNone = std::string_view::npos;
    const std::size_t mark = field.find_first_of("dDqQ+-", 1);
    return mark != kNone && mark + 1 < field.size() &&
           field.find_first_not_of("+-.0123456789") >= mark &&
           field.find_first_of("0123456789") < mark &&
           field.find_first_not_of("+-0123456789", mark + 1) == kNone;
}

// A field of the header card taken last without its blanks.
std::string_view headerField(const PacketLines& lines, std::size_t field) {
    return withoutBlanks(
        columnsOf(lines.line(), headerColumn(field), field == kType ? kTypeWidth : kIntegerWidth));
}

}  // namespace

void PacketNotes::noteHeader(bool hasEffect) {
    const HeaderCard& header = lines_.header;
    const ReadPacket* const packet = readPacket(header.it);
    if (lines_.isLastLineRepeated()) {
        if (hasEffect && packet != nullptr && header.it != kTitlePacket) {
            lines_.note(Finding::kLastLineRepeated);
            isEndNoted_ = true;
        }
    } else if (isCardBefore()) {
        if (hasEffect || wasStored_)
            lines_.noteNamed(Finding::kCardAsHeader, nameBefore_);
    } else {
        lastCardLine_ = 0;
        if (packet != nullptr && header.kc > (hasEffect ? packet->cards : 0)) {
            lastCardLine_ = lines_.place().line + static_cast<std::size_t>(header.kc);
            wasStored_ = hasEffect;
            nameBefore_ = packet->name;
        }
        notePacket(hasEffect);
    }
    if (header.it == kSummaryPacket) {
        hasSummary_ = true;
        summaryPlace_ = lines_.place();
    }
}

bool PacketNotes::isCardBefore() {
    return lastCardLine_ != 0 && lines_.place().line <= lastCardLine_;
}

void PacketNotes::notePacket(bool hasEffect) {
    const ReadPacket* const packet = readPacket(lines_.header.it);
    int type = 0;
    if (lines_.line().starts_with(kByteOrderMark) && lines_.place().line == 1)
        return lines_.note(Finding::kByteOrderMark);
    if ((lines_.header.odd & oddField(kType)) != 0) {
        if (readInteger(lines_.line(), 0, kTypeWidth, type) != FieldContent::kTorn)
            return lines_.note(Finding::kHeaderRepeated);
        lines_.note(Finding::kNumberTorn, headerField(lines_, kType));
    }
    if (packet == nullptr)
        return noteOtherPacket();
    if (lines_.header.it == kSummaryPacket)
        noteSummary();
    if (!hasEffect)
        lines_.noteNamed(hasSummary_ ? Finding::kPacketNotCounted : Finding::kPacketBeforeSummary,
                         packet->plural);
    noteFields();
}

void PacketNotes::noteFields() {
    const HeaderCard& header = lines_.header;
    const ReadPacket& packet = *readPacket(header.it);
    for (std::size_t field = kId; field < kFieldCount; ++field)
        if ((header.odd & packet.fields & oddField(field)) != 0)
            noteField(field);
    // A number of cards that is right does no harm, wherever it comes from.
    if (header.kc == packet.cards)
        return;
    if ((header.odd & oddField(kCards)) != 0)
        noteField(kCards);
    else if (header.kc < packet.cards)
        lines_.note(Finding::kCardCountLow, headerField(lines_, kCards), packet.name);
}

void PacketNotes::noteField(std::size_t field) {
    int number = 0;
    const bool isTorn =
        readInteger(lines_.line(), headerColumn(field), number) == FieldContent::kTorn;
    const std::string_view what = headerField(lines_, field);
    if (isTorn)
        lines_.note(Finding::kNumberTorn, what);
    else if (what.empty())
        lines_.noteNamed(Finding::kHeaderFieldKept, kFieldNames[field]);
    else
        lines_.note(Finding::kHeaderFieldKept, what, kFieldNames[field]);
}

void PacketNotes::noteOtherPacket() {
    const int type = lines_.header.it;
    for (const SkippedPacket& packet : kSkippedPackets)
        if (type >= packet.first && type <= packet.last)
            return lines_.note(Finding::kPacketSkipped, headerField(lines_, kType), packet.name);
    lines_.note(Finding::kPacketUnknown, headerField(lines_, kType));
}

void PacketNotes::noteSummary() {
    if (hasSummary_)
        lines_.note(Finding::kSummaryRepeated);
    const auto note = [&](int count, std::size_t field, std::string_view what) {
        if (count < 0)
            lines_.note(Finding::kCountNegative, headerField(lines_, field), what);
    };
    note(lines_.header.n1, kN1, "nodes");
    note(lines_.header.n2, kN2, "elements");
    note(lines_.header.n4, kN4, "properties");
}

void PacketNotes::noteFewer(std::string_view what, Finding finding, int read, int counted) {
    if (read < counted)
        lines_.noteAt(finding, summaryPlace_,
                      std::to_string(counted) + " counted, " + std::to_string(read) + " read",
                      what);
}

void PacketNotes::noteEnd(bool foundEnd, const PacketCounts& read, const PacketCounts& counted) {
    if (!hasSummary_)
        lines_.noteAt(Finding::kSummaryMissing, {}, {});
    noteFewer("nodes", Finding::kFewerThanCounted, read.nodes, counted.nodes);
    noteFewer("elements", Finding::kFewerThanCounted, read.elements, counted.elements);
    noteFewer({}, Finding::kFewerProperties, read.properties, counted.properties);
    if (!foundEnd) {
        if (!isEndNoted_ && !lines_.isCardMissing())
            lines_.note(Finding::kEndMissing);
        return;
    }
    if (isCardBefore())
        lines_.noteNamed(Finding::kCardAsHeader, nameBefore_);
    if (lines_.findContent())
        lines_.note(Finding::kContentAfterEnd);
}

void noteOddFields(PacketLines& lines, OddFields odd, std::size_t width) {
    // Of lines that are no such cards something else is noted.
    if (!lines.areNoted() || lines.isLastLineRepeated() || lines.isCardMissing() ||
        lines.line().starts_with('!'))
        return;
    for (std::size_t i = 0; odd >> i != 0; ++i) {
        if ((odd >> i & 1U) == 0)
            continue;
        const std::string_view field = withoutBlanks(columnsOf(lines.line(), i * width, width));
        text::Scan scan(field);
        double number = 0;
        if (field.empty())
            lines.noteNamed(Finding::kCoordinateMissing, std::string_view("xyz").substr(i, 1));
        else if (hasOtherExponent(field))
            lines.note(Finding::kExponentTorn, field);
        else
            lines.note(scan.real(number) ? Finding::kNumberTorn : Finding::kNumberUnreadable,
                       field);
    }
}

void noteOddValues(PacketLines& lines, OddFields odd) {
    if (lines.header.n1 < 2 || lines.header.n1 > 4)  // they set nothing
        return;
    lines.note(Finding::kValueUnreadable, withoutBlanks(lines.line()),
               (odd & oddField(0)) != 0 ? "first" : "second");
}

void noteDroppedNodes(PacketLines& lines, std::size_t kept) {
    const std::string_view rest =
        columnsOf(lines.line(), kept * kIntegerWidth, lines.line().size());
    if (rest.find_first_of("123456789") == std::string_view::npos)
        return;
    const auto* row = std::ranges::find(kReadNodes, lines.header.iv, &ReadNodes::shape);
    if (row == kReadNodes.end())
        row = &kReadNodes.back();
    lines.note(Finding::kNodesDropped, withoutBlanks(rest), kept == 4 ? row->four : row->eight);
}

void noteNodeId(PacketLines& lines, bool isDefined, bool isInMap) {
    if (isDefined)
        lines.note(Finding::kNodeRepeated, headerField(lines, kId));
    if (!isInMap)
        lines.note(Finding::kNodeOutsideMap, headerField(lines, kId));
}

void noteShape(PacketLines& lines) {
    if (!lines.areNoted())
        return;
    const std::string shape = std::to_string(lines.header.iv);
    lines.note(Finding::kShapeUnknown, headerField(lines, kShape), std::string_view(shape));
}

void notePropertyHeader(PacketLines& lines, const HeaderCard& inColumns, bool isKept,
                        bool isDefined) {
    const HeaderCard& header = lines.header;
    const std::string_view id = headerField(lines, kId);
    if (header.id != inColumns.id || header.n1 != inColumns.n1)
        lines.note(Finding::kPropertyHeaderDiffers);
    if (!isKept)
        lines.note(Finding::kPropertyIdOutside, id);
    if (isDefined)
        lines.note(Finding::kPropertyRepeated, id);
    if (header.n1 < 2 || header.n1 > 4) {
        const std::string values = std::to_string(header.n1);
        lines.noteNamed(Finding::kPropertyWithoutType, values);
    }
}

}  // namespace kvocaeio::patran
