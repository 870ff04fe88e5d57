/// The reader of a `*NODE` block.
#pragma once

#include <cstdio>

#include "abaqus/deck_lines.h"

namespace kvocaeio {

/// Every data line is one node, blank ones too. All parameters of the keyword line are ignored.
template <class Observer, class Sink>
void readNodeSection(DeckLines<Observer>& lines, Sink& sink) {
    std::fputs("Reading Node Section...\n", stdout);
    sink.beginNodes();
    lines.forEachDataLine([&] {
        if (!sink.addNode(lines.line()))
            lines.note(text::Finding::kStale, lines.line(), "not all of OID, x, y, z can be read");
    });
}

}  // namespace kvocaeio
