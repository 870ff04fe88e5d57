/// Notes of keyword lines: what of them is not read, and what they would have meant.
#pragma once

#include <string_view>

#include "abaqus/element_type.h"
#include "abaqus/lines.h"

namespace kvocaeio::abaqus {

/// Looks at the deck's first line for what hides all keywords of it, and gives it back.
void noteEncoding(DeckLines& lines);

/// Notes the line in hand, whose first field, in upper case, no section reader knows. `keyword` is
/// that field without blanks.
void noteUnknownLine(DeckLines& lines, std::string_view keyword);

/// Notes the line in hand, which is passed over as data of an unknown keyword.
void noteSkippedLine(DeckLines& lines);

/// Notes a keyword that is read as data, since something stands before it. `text` is the line in
/// hand from its asterisk on.
void noteIndentedKeyword(DeckLines& lines, std::string_view text);

/// Notes what is lost of the keyword line in hand, which a section reader takes. `keywordLine` is
/// the line in upper case.
void noteKeywordLine(DeckLines& lines, std::string_view keywordLine, std::string_view keyword);

/// Notes a type that is unknown, or taken for what it is not. `typeValue` is a part of
/// `keywordLine`, the line in hand in upper case.
void noteElementType(DeckLines& lines, std::string_view keywordLine, std::string_view typeValue,
                     ElementType type);

/// Notes that the reading ends at the line in hand, and takes all lines after it.
void noteEndOfReading(DeckLines& lines, Finding finding);

}  // namespace kvocaeio::abaqus
