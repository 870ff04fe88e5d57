/// The driver of one pass over a deck: finds the keywords and hands over to the section readers.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "abaqus/deck_lines.h"
#include "abaqus/element_section.h"
#include "abaqus/node_section.h"
#include "abaqus/set_sections.h"
#include "text/ascii.h"

namespace kvocaeio {

enum class Keyword { kNode, kElement, kElset, kSurface, kDload, kShellSection, kUnknown };

inline Keyword findKeyword(std::string_view field) {
    struct Row {
        std::string_view name;
        Keyword keyword;
    };
    static constexpr std::array kKeywords{
        Row{"*NODE", Keyword::kNode},   Row{"*ELEMENT", Keyword::kElement},
        Row{"*ELSET", Keyword::kElset}, Row{"*SURFACE", Keyword::kSurface},
        Row{"*DLOAD", Keyword::kDload}, Row{"*SHELL SECTION", Keyword::kShellSection},
    };
    for (const Row& row : kKeywords)
        if (row.name == field)
            return row.keyword;
    return Keyword::kUnknown;
}

/// Reads the section that `keywordLine` opens, or passes over an unknown one.
template <class Observer, class Sink>
PassState readSection(Keyword keyword, DeckLines<Observer>& lines, std::string_view keywordLine,
                      Sink& sink) {
    switch (keyword) {
        case Keyword::kNode:
            readNodeSection(lines, sink);
            break;
        case Keyword::kElement:
            readElementSection(lines, keywordLine, sink);
            break;
        case Keyword::kElset:
            readElsetSection(lines, keywordLine, sink);
            break;
        case Keyword::kSurface:
            return readSurfaceSection(lines, keywordLine, sink);
        case Keyword::kDload:
            readDloadSection(lines, sink);
            break;
        case Keyword::kShellSection:
            return readShellSection(lines, keywordLine, sink);
        case Keyword::kUnknown:
            lines.note(text::Finding::kPassedOver, keywordLine, "the keyword is unknown");
            lines.forEachDataLine([] {});
            break;
    }
    return PassState::kGoesOn;
}

/// Goes once through the deck from the reader's present line. Both passes of an import are this one
/// piece of code, with a sink that counts and one that stores (see deck_counts.h, deck_store.h), so
/// that they cannot come to different decisions. The observer is told what is not read.
template <class Observer, class Sink>
void scanDeck(text::LineReader& reader, Sink& sink, Observer& observer) {
    DeckLines<Observer> lines(reader, observer);
    std::string keywordLine;
    while (lines.next()) {
        text::foldToUpper(lines.line(), keywordLine);
        text::Tokens fields(keywordLine);
        std::string_view field;
        if (!fields.next(kKeywordField, field))
            continue;
        const Keyword keyword = findKeyword(text::trimBlanks(field));
        if (readSection(keyword, lines, keywordLine, sink) == PassState::kEnds)
            return;
    }
}

}  // namespace kvocaeio
