/// The report of a C host, and what one import leaves to another's.
#pragma once

#include <string_view>

#include "report/import_report.h"
#include <kvocaeio/kvocaeio.h>

/// What the opaque handle is.
struct kvocaeio_report {
    kvocaeio::report::ImportReport content;
};

namespace kvocaeio::c_interface {

/// Adds the findings of a second reading of the same file that the first one has not had, and the
/// counts whose names are new.
void addSecondReading(const report::ImportReport& second, report::ImportReport& report);

/// Adds what the import of a tidied deck has noticed to what the tidy run of the deck has: not what
/// that says, too, nor notes of how the tidied deck is written. Its lines are not those of the
/// original, so the findings are of no line of the file `name`.
void addTidiedReading(const report::ImportReport& import, std::string_view name,
                      report::ImportReport& report);

}  // namespace kvocaeio::c_interface
