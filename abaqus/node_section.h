/// The reader of a `*NODE` block.
#pragma once

#include <string_view>

#include "abaqus/lines.h"

namespace kvocaeio::abaqus {

/// Every data line is one node, blank ones too. All parameters of the keyword line are ignored.
template <class Sink>
void readNodeSection(DeckLines& lines, std::string_view /*keywordLine*/, Sink& sink) {
    sink.beginNodes();
    lines.forEachDataLine([&] { sink.addNode(lines.line()); });
}

}  // namespace kvocaeio::abaqus
