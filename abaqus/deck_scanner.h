/// The driver of one pass over a deck: finds the keywords and hands over to the section readers.
#pragma once

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string>
#include <string_view>

#include "abaqus/element_section.h"
#include "abaqus/keyword_notes.h"
#include "abaqus/lines.h"
#include "abaqus/node_section.h"
#include "abaqus/set_sections.h"
#include "text/ascii.h"

namespace kvocaeio::abaqus {

template <class Sink>
struct SectionReader {
    std::string_view keyword;
    const char* title;
    void (*read)(DeckLines& lines, std::string_view keywordLine, Sink& sink);
};

template <class Sink>
inline constexpr SectionReader<Sink> kSectionReaders[] = {
    {"*NODE", "Node", readNodeSection<Sink>},
    {"*ELEMENT", "Element", readElementSection<Sink>},
    {"*ELSET", "Elset", readElsetSection<Sink>},
    {"*SURFACE", "Surface", readSurfaceSection<Sink>},
    {"*DLOAD", "Dload", readDloadSection<Sink>},
    {"*SHELL SECTION", "Shell", readShellSection<Sink>},
};

/// Goes once through the deck. Both passes of an import are this one piece of code, with a sink
/// that counts and one that stores (see deck_counts.h, deck_store.h), so that they cannot come to
/// different decisions.
template <class Sink>
void scanDeck(DeckLines& lines, Sink& sink) {
    std::string keywordLine;
    noteEncoding(lines);
    while (!lines.hasEnded() && lines.next()) {
        text::foldToUpper(lines.line(), keywordLine);
        text::Tokens fields(keywordLine);
        std::string_view field;
        if (!fields.next(kKeywordField, field))
            continue;
        const std::string_view keyword = text::trimBlanks(field);
        const auto reader =
            std::ranges::find(kSectionReaders<Sink>, keyword, &SectionReader<Sink>::keyword);
        if (reader == std::end(kSectionReaders<Sink>)) {
            noteUnknownLine(lines, keyword);
            lines.forEachDataLine([&] { noteSkippedLine(lines); });
            continue;
        }
        noteKeywordLine(lines, keywordLine, keyword);
        if (!lines.isQuiet())
            std::printf("Reading %s Section...\n", reader->title);
        reader->read(lines, keywordLine, sink);
    }
}

}  // namespace kvocaeio::abaqus
