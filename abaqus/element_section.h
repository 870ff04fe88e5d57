/// The reader of an `*ELEMENT` block.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

#include "abaqus/deck_lines.h"
#include "abaqus/element_type.h"

namespace kvocaeio {

/// One element: its OID and its nodes, over as many lines as it takes. The lines that continue it
/// are taken whatever they are, keyword lines and comments included.
template <class Observer, class Sink>
void readElement(DeckLines<Observer>& lines, std::size_t tokens, Sink& sink) {
    std::size_t taken = sink.addElementTokens(lines.line(), tokens);
    if (taken == 0) {
        lines.note(text::Finding::kPassedOver, lines.line(), "no element stands on the line");
        return;
    }
    bool atEnd = false;
    while (taken < tokens) {
        if (!atEnd && !lines.next()) {
            lines.note(text::Finding::kEndedEarly, lines.line(), "the deck ends inside an element");
            atEnd = true;
        }
        // At the end of the deck the last line comes again, from its first token, until the element
        // is complete. Where even that line is blank nothing more can come.
        const std::size_t more = sink.addElementTokens(lines.line(), tokens - taken);
        if (atEnd && more == 0) {
            sink.repeatLastNumber(tokens - taken);
            break;
        }
        taken += more;
    }
    sink.endElement();
}

template <class Observer, class Sink>
void readElementSection(DeckLines<Observer>& lines, std::string_view keywordLine, Sink& sink) {
    std::fputs("Reading Element Section...\n", stdout);
    const std::string typeName(parameterValue(keywordLine, "TYPE", kOpenValue));
    const std::string elset(parameterValue(keywordLine, "ELSET", kOpenValue));
    const ElementType type = elementType(typeName);
    std::printf("  element type = %s\n", typeName.c_str());
    std::printf("  geometry type = %d\n", static_cast<int>(type.geometry));
    std::printf("  node num per element = %d\n", type.nodesPerElem);
    std::printf("  elset name = %s\n", elset.c_str());
    if (type.geometry == GeometryType::kUnknown)
        lines.note(text::Finding::kPassedOver, typeName, "the element type is unknown");
    sink.beginElements(typeName, elset, type);
    const std::size_t tokens = static_cast<std::size_t>(type.nodesPerElem) + 1;
    lines.forEachDataLine([&] { readElement(lines, tokens, sink); });
}

}  // namespace kvocaeio
