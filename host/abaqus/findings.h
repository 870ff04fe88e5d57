/// What is remarkable about a deck.
#pragma once

#include <string>

#include "abaqus/summary.h"
#include "file_report.h"

namespace kvocaeio::host {

/// Why elements are left out, as a code for programs and in words that follow "left out: ".
struct LeftOutWords {
    std::string_view code;
    std::string_view words;
};
const LeftOutWords& wordsOf(LeftOut reason);

/// Adds what `summary` tells to the findings of `report`.
void addFindings(const DeckSummary& summary, FileReport& report);

}  // namespace kvocaeio::host
