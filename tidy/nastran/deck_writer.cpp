/// Nodes and elements; properties are in property_writer.cpp.
#include "tidy/nastran/deck_writer.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "tidy/nastran/numbers.h"

namespace kvocaeio::tidy::nastran {

void DeckWriter::begin() {
    out_.text("BEGIN BULK\n");
}

void DeckWriter::finish() {
    out_.text("ENDDATA\n");
}

void DeckWriter::writeCard() {
    if (card().rule() == nullptr) {
        if (cards_.isInBulk())
            cards_.note(Finding::kCardLeftOut, card().name());
        return;
    }
    switch (card().rule()->kind) {
        case CardKind::kGrid:
            return writeGrid();
        case CardKind::kElement:
        case CardKind::kShell:
            return writeElement();
        case CardKind::kProperty:
        case CardKind::kBeamLibrary:
            return writeProperty();
        case CardKind::kUnread:
            return cards_.note(Finding::kElementLeftOut, card().name());
        case CardKind::kGridDefault:
        case CardKind::kFrameByPoints:
        case CardKind::kFrameByGrids:
            return;  // has gone into the nodes
    }
}

void DeckWriter::tellForm() {
    const Card& read = card();
    if (read.isReplicated)
        cards_.note(Finding::kReplication, read.name());
    if (read.isFreeForm)
        cards_.note(Finding::kFreeField, read.name());
    if (read.isLargeForm)
        cards_.note(Finding::kLargeField, read.name());
    if (read.hasTabs)
        cards_.note(Finding::kTabs, read.name());
    if (read.hasOtherName)
        cards_.note(Finding::kOtherName, read.name());
    const CardRule& rule = *read.rule();
    if (rule.name != rule.written && rule.kind != CardKind::kShell)
        cards_.note(Finding::kWrittenAs, read.name());
}

std::uint32_t DeckWriter::source() {
    const std::uint32_t file = card().place().file;
    if (file >= rowsOfSources_.size())
        rowsOfSources_.resize(std::size_t{file} + 1, -1);
    if (rowsOfSources_[file] < 0)
        rowsOfSources_[file] = outcome_.origins.sourceOf({}, sources_.fileName(file));
    return static_cast<std::uint32_t>(rowsOfSources_[file]);
}

// The number that a node or element has in the new deck.
int DeckWriter::numberOf(const Numbering& numbers, int number, std::size_t field) {
    const int out = numbers.numberOf(number);
    if (out == 0)
        cards_.fail(Finding::kNoNumberLeft, field);
    return out;
}

void DeckWriter::writeGrid() {
    tellForm();
    const Card& read = card();
    int number = 0;
    int frameNumber = 0;
    Point point;
    if (!readNumber(read.field(0), number))
        return cards_.fail(Finding::kIdUnreadable, 0, read.name());
    if (!readFrameNumber(read.field(1), content_.defaultFrame, frameNumber))
        return cards_.fail(Finding::kIdUnreadable, 1, read.name());
    if (const std::size_t count = readPoint(read, 2, point); count < point.size())
        return cards_.fail(Finding::kCoordinateUnreadable, 2 + count, read.name());
    const int id = numberOf(content_.nodes, number, 0);
    if (id != number)
        cards_.note(Finding::kNumberLarge, 0);
    line_.begin("GRID");
    line_.add(id);
    line_.add("");
    if (frameNumber == 0) {
        for (std::size_t i = 0; i < point.size(); ++i)
            putCoordinate(2 + i, point[i]);
    } else {
        const std::string name = std::to_string(frameNumber);
        const Frame* const frame = content_.frames.find(frameNumber);
        if (frame == nullptr)
            return cards_.fail(
                content_.frames.holds(frameNumber) ? Finding::kFrameWrong : Finding::kFrameMissing,
                1, name);
        cards_.note(Finding::kFrame, 1, name);
        for (const double coordinate : frame->basic(point))
            putReal(coordinate);
    }
    out_.text(line_.finish());
    outcome_.origins.nodes.add({id, number, source()});
}

void DeckWriter::putCoordinate(std::size_t field, double value) {
    const std::string_view text = card().field(field);
    if (isPlainReal(text))
        return line_.add(text);
    if (!text.empty() && text.size() <= OutputCard::kWidth)
        cards_.note(Finding::kNumberForm, field, card().name());
    putReal(value);
}

void DeckWriter::putReal(double value) {
    const ShortReal number = shortenReal(value);
    line_.add(number.text());
    if (number.value == value)
        return;
    outcome_.deviation = std::max(outcome_.deviation, std::abs(number.value - value));
    if (static_cast<float>(number.value) != static_cast<float>(value))
        cards_.note(Finding::kNumberRounded, card().name());
}

bool DeckWriter::readCorners(int number) {
    const CardRule& rule = *card().rule();
    corners_.clear();
    for (std::size_t i = 0; i < rule.corners; ++i) {
        int corner = 0;
        const bool isReadable = readNumber(card().field(2 + i), corner);
        if (!isReadable && rule.kind == CardKind::kElement) {
            cards_.fail(Finding::kNodeMissing, 2 + i, card().name());
            return false;
        }
        if (isReadable)
            corners_.push_back(numberOf(content_.nodes, corner, 2 + i));
    }
    return number > 0;
}

void DeckWriter::tellMidSideNodes() {
    const CardRule& rule = *card().rule();
    const std::size_t end = std::min<std::size_t>(2 + rule.most, card().fieldCount());
    for (std::size_t i = 2 + rule.corners; i < end; ++i)
        if (!card().field(i).empty())
            return cards_.note(Finding::kMidSideNodes, i, card().name());
}

void DeckWriter::writeElement() {
    tellForm();
    const Card& read = card();
    int number = 0;
    if (!readNumber(read.field(0), number))
        return cards_.fail(Finding::kIdUnreadable, 0, read.name());
    int property = number;  // which a blank field means
    if (!read.field(1).empty() && read.field(1) != "0" && !readNumber(read.field(1), property))
        return cards_.fail(Finding::kIdUnreadable, 1, read.name());
    const int id = numberOf(content_.elements, number, 0);
    if (!readCorners(id))
        return;
    if (id != number)
        cards_.note(Finding::kNumberLarge, 0);
    tellMidSideNodes();
    putElement(id, content_.properties.numberOf(property));
    if (read.rule()->kind == CardKind::kShell)
        cards_.note(Finding::kShell, read.name());
    outcome_.origins.elements.add({id, number, source()});
}

void DeckWriter::putElement(int number, int property) {
    const std::string_view name = card().rule()->written;
    line_.begin(name);
    if (name == "CHEXA") {
        corners_.resize(8, corners_.back());
        putHexa(number, property);
    } else {
        line_.add(number);
        line_.add(property);
        for (const int corner : corners_)
            line_.add(corner);
    }
    out_.text(line_.finish());
}

// The first zero behind a blank that the reader finds in a `CHEXA` is kept, and all later ones are
// wiped, among them that of the blank field before the continuation, which would be taken for the
// seventh node. So there is one further in front. The reader drops nine columns of a continuation,
// or all before its first comma: eight digits would lose one.
void DeckWriter::putHexa(int number, int property) {
    constexpr int kEightDigits = 10'000'000;
    constexpr std::size_t kOnFirstLine = 6;
    cards_.note(Finding::kHexa);
    if (number < kEightDigits) {
        line_.addWithZeros(number);
        line_.add(property);
    } else {
        line_.add(number);
        line_.addWithZeros(property);
    }
    for (std::size_t i = 0; i < kOnFirstLine; ++i)
        line_.add(corners_[i]);
    const bool isLong = std::max(corners_[6], corners_[7]) >= kEightDigits;
    line_.append(isLong ? "\n+," : "\n+       ");
    line_.add(corners_[6]);
    line_.append(isLong ? "," : "");
    line_.add(corners_[7]);
}

}  // namespace kvocaeio::tidy::nastran
