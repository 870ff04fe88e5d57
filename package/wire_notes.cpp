/// Wires and wire models that are lost or changed.
#include "package/wire_notes.h"

#include <string>

#include "package/geometry_notes.h"
#include "package/lines.h"
#include "package/wire_sections.h"
#include "text/scan.h"

namespace kvocaeio::package {

bool WireNotes::seek(const Word& sought) {
    bool passesPolyline = false;
    passesColor_ = false;
    const bool found = lines_.nextWith([&](const char* first, const char* last) {
        const char* const place = sought(first, last);
        passesColor_ = passesColor_ || kColorWord(first, place) != place;
        passesPolyline = passesPolyline || kPolylineWord(first, place) != place;
        return place;
    });
    if (passesPolyline && !hasRefused_)
        lines_.note(Finding::kPolylineLost);
    hasRefused_ = false;
    return found;
}

void WireNotes::refuse(Finding why) {
    hasRefused_ = true;
    lines_.note(why);
}

// A blank line, and a count that cannot be divided by three, end the wire.
void WireNotes::pointRow(int count, std::size_t most, const char* behind, bool& isShort) {
    if (isShort)
        return;
    isShort = count == 0 && isBlockEnd(lines_.line());
    if (isShort)
        lines_.note(Finding::kPointsMissing);
    else if (count == 0)
        lines_.note(Finding::kPointText);
    else
        noteRest(lines_, count, most, behind);
}

// A wire that begins there is lost.
void WireNotes::lineAfter() {
    int number = 0;
    if (scanKeywordLine(lines_.line(), kColorWord, number) && kColorWord.isHeldBy(lines_.line()))
        refuse(Finding::kWireColorUsed);
}

void WireNotes::stored(const WireTables& wires, int colorId) {
    const std::size_t index = wires.wireDiameter.size();
    // The colours of other wires are never handed out.
    if (passesColor_ && index > 0 && wires.wireProfileNames &&
        index <= wires.wireProfileNames->size())
        lines_.noteAt(Finding::kWireColorTaken, {colorLine_, 0},
                      "COLOR " + std::to_string(colorId));
}

void noteNoModel(text::PassLines& lines) {
    text::Scan scan(lines.line());
    std::string_view name;
    double real = 0.0;
    if (scan.word(name) && scan.real(real) && !kWireWord.isMatchedBy(name))
        lines.note(Finding::kModelIncomplete);
}

void noteModelLine(text::PassLines& lines) {
    std::string_view name;
    if (!lines.next())
        return;
    if (scanModel(lines.line(), name) && !kWireWord.isMatchedBy(name))
        lines.note(Finding::kModelIncomplete);
    lines.giveBack();
}

void noteModel(text::PassLines& lines, const text::LinePlace& place, int number,
               std::string_view name, std::size_t index) {
    if (kWireWord.isMatchedBy(name))
        lines.note(Finding::kModelOfWire);
    else if (number < 0 || static_cast<std::size_t>(number) != index)
        lines.noteAt(Finding::kModelNumber, {place.line, 0}, std::to_string(number));
}

}  // namespace kvocaeio::package
