/// The readers of `*ELSET`, `*SURFACE`, `*DLOAD` and `*SHELL SECTION` blocks.
#pragma once

#include <string_view>

#include "abaqus/keyword_notes.h"
#include "abaqus/lines.h"

namespace kvocaeio::abaqus {

/// A set flagged INTERNAL is dropped here; its data lines are left to the driver as unknown ones.
template <class Sink>
void readElsetSection(DeckLines& lines, std::string_view keywordLine, Sink& sink) {
    if (hasFlag(keywordLine, "INTERNAL"))
        return lines.note(Finding::kSetInternal);
    const bool generated = hasFlag(keywordLine, "GENERATE");
    sink.beginElset(parameterValue(keywordLine, "ELSET", kClosedValue), generated);
    lines.forEachDataLine(
        [&] { generated ? sink.setRange(lines.line()) : sink.addMembers(lines.line()); });
}

/// A surface of any TYPE but ELEMENT, and one without TYPE, ends the pass in silence.
template <class Sink>
void readSurfaceSection(DeckLines& lines, std::string_view keywordLine, Sink& sink) {
    const std::string_view type = parameterValue(keywordLine, "TYPE", kClosedValue);
    if (type != "ELEMENT") {
        noteEndOfReading(lines, Finding::kSurfaceEndsReading);
        return lines.endPass();
    }
    sink.beginSurface(type, parameterValue(keywordLine, "NAME", kOpenValue));
    lines.forEachDataLine([&] { sink.addSurfaceItem(lines.line()); });
}

template <class Sink>
void readDloadSection(DeckLines& lines, std::string_view /*keywordLine*/, Sink& sink) {
    sink.beginDload();
    lines.forEachDataLine([&] { sink.addLoad(lines.line()); });
}

/// A section whose keyword line has no "MATERIAL" anywhere in it ends the pass in silence.
template <class Sink>
void readShellSection(DeckLines& lines, std::string_view keywordLine, Sink& sink) {
    if (keywordLine.find("MATERIAL") == std::string_view::npos) {
        noteEndOfReading(lines, Finding::kShellEndsReading);
        return lines.endPass();
    }
    const std::string_view elset = parameterValue(keywordLine, "ELSET", kOpenValue);
    sink.beginShellSection(parameterValue(keywordLine, "MATERIAL", kOpenValue), elset);
    const text::LinePlace place = lines.place();
    bool hasThickness = false;
    lines.forEachDataLine([&] {
        sink.setThickness(lines.line());
        hasThickness = true;
    });
    if (!hasThickness)
        lines.noteAt(Finding::kThicknessMissing, {place.line, 0}, elset);
}

}  // namespace kvocaeio::abaqus
