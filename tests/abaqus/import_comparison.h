/// The library's import beside the plain one.
#pragma once

#include <string>
#include <vector>

#include "support/files.h"

namespace kvocaeio::test {

struct NamedDeck {
    std::string name;
    std::string text;
};

/// Imports decks by the library and by the plain import, in one folder with a debug folder in it.
class ImportComparison {
  public:
    ImportComparison() { folder_.makeFolder("debug"); }

    /// What differs in the first deck that is not read alike, with the deck itself; empty when all
    /// are. Compared are result, standard output, InputAbaqus.log, all walks and the look-ups.
    /// Many decks at a time save the cost of catching standard output for each.
    std::string firstDifference(const std::vector<NamedDeck>& decks);

  private:
    TempFolder folder_;
};

}  // namespace kvocaeio::test
