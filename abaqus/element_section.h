/// The reader of an `*ELEMENT` block.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

#include "abaqus/element_type.h"
#include "abaqus/keyword_notes.h"
#include "abaqus/lines.h"

namespace kvocaeio::abaqus {

/// One element: its OID and its nodes, over as many lines as it takes. The lines that continue it
/// are taken whatever they are, keyword lines and comments included.
template <class Sink>
void readElement(DeckLines& lines, std::size_t tokens, Sink& sink) {
    std::size_t taken = sink.addElementTokens(lines.line(), tokens);
    if (taken == 0)
        return;
    bool atEnd = false;
    while (taken < tokens) {
        if (!atEnd && !lines.next()) {
            lines.note(Finding::kElementIncomplete);
            lines.repeatLine();
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

template <class Sink>
void readElementSection(DeckLines& lines, std::string_view keywordLine, Sink& sink) {
    const std::string_view typeValue = parameterValue(keywordLine, "TYPE", kOpenValue);
    const std::string typeName(typeValue);
    const std::string elset(parameterValue(keywordLine, "ELSET", kOpenValue));
    const ElementType type = elementType(typeName);
    if (!lines.isQuiet()) {
        std::printf("  element type = %s\n", typeName.c_str());
        std::printf("  geometry type = %d\n", static_cast<int>(type.geometry));
        std::printf("  node num per element = %d\n", type.nodesPerElem);
        std::printf("  elset name = %s\n", elset.c_str());
    }
    noteElementType(lines, keywordLine, typeValue, type);
    sink.beginElements(typeName, elset, type);
    const std::size_t tokens = static_cast<std::size_t>(type.nodesPerElem) + 1;
    lines.forEachDataLine([&] { readElement(lines, tokens, sink); });
}

}  // namespace kvocaeio::abaqus
