/// A Nastran deck, imported.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "import_findings.h"
#include "platform.h"
#include <kvocaeio/nastran.h>

namespace kvocaeio::host {

inline constexpr std::string_view kFixedFieldsOnly =
    "; only fixed fields of eight columns are read as they are meant";

class NastranDeck {
  public:
    /// Reads the deck at `path`. The library's progress lines go to `progress`. Throws `FileError`
    /// where the reader refuses it.
    NastranDeck(const std::string& path, PrintTarget progress);
    NastranDeck(const NastranDeck&) = delete;
    NastranDeck& operator=(const NastranDeck&) = delete;

    KVONASTRAN_Reader reader;
    ImportFindings imported;
    std::size_t freeCards = 0;  ///< cards with free or large fields
    double importSeconds = 0.0;
};

/// Nodes of an element's eight slots that are left when the last one is not repeated.
int cornersOf(const int* slots);

}  // namespace kvocaeio::host
