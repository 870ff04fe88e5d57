/// The rounds over a deck, and what each card leaves.
#include "tidy/nastran/deck_content.h"

#include <limits>

#include "tidy/nastran/numbers.h"

namespace kvocaeio::tidy::nastran {

namespace {

enum class Round { kCards, kGridPoints };

void scanFrameByPoints(const Card& card, FrameTable& frames) {
    int number = 0;
    int reference = 0;
    if (!readNumber(card.field(0), number))
        return;
    std::array<Point, 3> points{};
    bool isReadable = readFrameNumber(card.field(1), 0, reference);
    for (std::size_t i = 0; i < points.size(); ++i)
        isReadable = readPoint(card, 2 + 3 * i, points[i]) == 3 && isReadable;
    if (!isReadable)
        points = {};  // which make no axes
    frames.addByPoints(number, card.rule()->frame, reference, points);
}

void scanFramesByGrids(const Card& card, FrameTable& frames) {
    for (const std::size_t first : {std::size_t{0}, std::size_t{4}}) {
        int number = 0;
        std::array<int, 3> grids{};
        if (!readNumber(card.field(first), number))
            continue;
        for (std::size_t i = 0; i < grids.size(); ++i)
            if (!readNumber(card.field(first + 1 + i), grids[i]))
                grids[i] = 0;  // which is no grid point
        frames.addByGrids(number, card.rule()->frame, grids);
    }
}

void scanGridPoint(const Card& card, DeckContent& content) {
    int number = 0;
    int frame = 0;
    Point local{};
    if (readNumber(card.field(0), number) && content.frames.needsGrid(number) &&
        readFrameNumber(card.field(1), content.defaultFrame, frame) &&
        readPoint(card, 2, local) == local.size())
        content.frames.addGrid(number, frame, local);
}

void scanCard(const Card& card, DeckContent& content) {
    int number = 0;
    switch (card.rule()->kind) {
        case CardKind::kGrid:
            if (readNumber(card.field(0), number))
                content.nodes.add(number);
            break;
        case CardKind::kGridDefault:
            if (!readFrameNumber(card.field(1), 0, content.defaultFrame))
                content.defaultFrame = 0;
            break;
        case CardKind::kFrameByPoints:
            scanFrameByPoints(card, content.frames);
            break;
        case CardKind::kFrameByGrids:
            scanFramesByGrids(card, content.frames);
            break;
        case CardKind::kElement:
        case CardKind::kShell:
            if (readNumber(card.field(0), number))
                content.elements.add(number);
            break;
        case CardKind::kProperty:
        case CardKind::kBeamLibrary:
            if (readNumber(card.field(0), number))
                content.properties.add(number);
            break;
        case CardKind::kUnread:
            break;
    }
}

bool scanRound(const Deck& deck, const text::Listener& listener, Round round,
               DeckContent& content) {
    SourceFiles sources(deck, listener);
    if (!sources.open())
        return false;
    CardReader cards(sources, content.strayLines);
    if (content.hasControl)
        cards.skipControl();
    while (cards.next()) {
        const Card& card = cards.card();
        if (cards.hasLeftControl() && !content.hasControl) {
            content.hasControl = true;
            content.forgetCards();
        }
        if (card.rule() == nullptr)
            continue;
        if (round == Round::kCards)
            scanCard(card, content);
        else if (card.rule()->kind == CardKind::kGrid)
            scanGridPoint(card, content);
    }
    if (!content.strayLines.areKnown)
        content.strayLines.files = sources.opened();
    return true;
}

}  // namespace

bool readNumber(std::string_view field, int& number) {
    long long value = 0;
    if (!readInteger(field, value) || value < 1 || value > std::numeric_limits<int>::max())
        return false;
    number = static_cast<int>(value);
    return true;
}

bool readFrameNumber(std::string_view field, int ifBlank, int& number) {
    number = field.empty() ? ifBlank : 0;
    return field.empty() || field == "0" || readNumber(field, number);
}

std::size_t readPoint(const Card& card, std::size_t first, Point& point) {
    for (std::size_t i = 0; i < point.size(); ++i) {
        const std::string_view field = card.field(first + i);
        point[i] = 0.0;
        if (!field.empty() && !readReal(field, point[i]))
            return i;
    }
    return point.size();
}

bool scanDeck(const Deck& deck, const text::Listener& listener, DeckContent& content) {
    bool isComplete = false;
    while (!isComplete) {
        content.properties.clear();
        content.frames.clear();
        content.defaultFrame = 0;
        if (!scanRound(deck, listener, Round::kCards, content))
            return false;
        if (!content.strayLines.areKnown && content.strayLines.areWanted) {
            // Cards were read without their continuations.
            content.strayLines.areKnown = true;
            content.forgetCards();
            continue;
        }
        content.strayLines.areKnown = true;
        const bool areNodesChosen = content.nodes.choose();
        isComplete = content.elements.choose() && areNodesChosen;
    }
    return !content.frames.needsGrids() || scanRound(deck, listener, Round::kGridPoints, content);
}

}  // namespace kvocaeio::tidy::nastran
