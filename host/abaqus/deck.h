/// An Abaqus deck, imported and normalised as far as it can be.
#pragma once

#include <string>

#include "abaqus/tables.h"
#include "import_findings.h"
#include "platform.h"
#include <kvocaeio/abaqus.h>

namespace kvocaeio::host {

class AbaqusDeck {
  public:
    /// Reads the deck at `path`. The library's progress lines go to `progress`. Throws `FileError`
    /// where there is nothing to report.
    AbaqusDeck(const std::string& path, PrintTarget progress);
    AbaqusDeck(const AbaqusDeck&) = delete;  // `tables` points into the reader
    AbaqusDeck& operator=(const AbaqusDeck&) = delete;

    DeckTables tables;
    double importSeconds = 0.0;
    double normalisationSeconds = 0.0;
    std::string sortFailure;  ///< why there is no normalised mesh; empty when there is one
    ImportFindings imported;  ///< of import and normalisation
    ImportFindings listed;    ///< of the import alone, which lists the elements

  private:
    CKVOAbaqusReader reader_;
};

/// Normalises what `reader` has imported and adds to `report`. Returns why that fails, else
/// nothing.
std::string sortFailureOf(CKVOAbaqusReader& reader, CKVOImportReport& report);

}  // namespace kvocaeio::host
