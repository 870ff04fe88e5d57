/// The readers of `*ELSET`, `*SURFACE`, `*DLOAD` and `*SHELL SECTION` blocks.
#pragma once

#include <cstdio>
#include <string_view>

#include "abaqus/deck_lines.h"

namespace kvocaeio {

/// How a section leaves the pass: going on with the next keyword, or over.
enum class PassState { kGoesOn, kEnds };

/// A set flagged INTERNAL is dropped here; its data lines are left to the driver as unknown ones.
template <class Observer, class Sink>
void readElsetSection(DeckLines<Observer>& lines, std::string_view keywordLine, Sink& sink) {
    std::fputs("Reading Elset Section...\n", stdout);
    if (hasFlag(keywordLine, "INTERNAL")) {
        lines.note(text::Finding::kPassedOver, keywordLine, "the set is flagged INTERNAL");
        return;
    }
    const bool generated = hasFlag(keywordLine, "GENERATE");
    sink.beginElset(parameterValue(keywordLine, "ELSET", kClosedValue), generated);
    lines.forEachDataLine([&] {
        if (!(generated ? sink.setRange(lines.line()) : sink.addMembers(lines.line())))
            lines.note(text::Finding::kStale, lines.line(), "start, end and step cannot be read");
    });
}

/// A surface of any TYPE but ELEMENT, and one without TYPE, ends the pass in silence.
template <class Observer, class Sink>
PassState readSurfaceSection(DeckLines<Observer>& lines, std::string_view keywordLine, Sink& sink) {
    std::fputs("Reading Surface Section...\n", stdout);
    const std::string_view type = parameterValue(keywordLine, "TYPE", kClosedValue);
    if (type != "ELEMENT") {
        lines.note(text::Finding::kEndedEarly, keywordLine, "the surface's TYPE is not ELEMENT");
        return PassState::kEnds;
    }
    sink.beginSurface(type, parameterValue(keywordLine, "NAME", kOpenValue));
    lines.forEachDataLine([&] {
        if (!sink.addSurfaceItem(lines.line()))
            lines.note(text::Finding::kPassedOver, lines.line(), "no item stands on the line");
    });
    return PassState::kGoesOn;
}

template <class Observer, class Sink>
void readDloadSection(DeckLines<Observer>& lines, Sink& sink) {
    std::fputs("Reading Dload Section...\n", stdout);
    sink.beginDload();
    lines.forEachDataLine([&] {
        if (!sink.addLoad(lines.line()))
            lines.note(text::Finding::kStale, lines.line(),
                       "not all of OID, label, value can be read");
    });
}

/// A section whose keyword line has no "MATERIAL" anywhere in it ends the pass in silence.
template <class Observer, class Sink>
PassState readShellSection(DeckLines<Observer>& lines, std::string_view keywordLine, Sink& sink) {
    std::fputs("Reading Shell Section...\n", stdout);
    if (keywordLine.find("MATERIAL") == std::string_view::npos) {
        lines.note(text::Finding::kEndedEarly, keywordLine, "the shell section has no MATERIAL");
        return PassState::kEnds;
    }
    sink.beginShellSection(parameterValue(keywordLine, "MATERIAL", kOpenValue),
                           parameterValue(keywordLine, "ELSET", kOpenValue));
    lines.forEachDataLine([&] {
        if (!sink.setThickness(lines.line()))
            lines.note(text::Finding::kStale, lines.line(), "the thickness cannot be read");
    });
    return PassState::kGoesOn;
}

}  // namespace kvocaeio
