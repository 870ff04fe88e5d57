/// What `kvocaeio tidy` says of a deck.
#pragma once

#include <string>
#include <string_view>

#include "tidy/tidy.h"
#include "tidy/tidy_run.h"

namespace kvocaeio::host {

/// What became of a deck.
struct TidyResult {
    TidyRun run;
    std::string_view format;  ///< as a code for programs; empty where it is not known
    bool isChanged = false;   ///< where not, the target is a copy
    double deviation = 0.0;   ///< the largest one of a coordinate
    std::string failureCode;  ///< why nothing was written; empty where it was
    std::string failure;
};

/// In a line, for a person.
std::string tidyText(const TidyResult& result, const TidyOptions& options);

/// For programs, in the layout of docs/tidy.schema.json.
std::string tidyJson(const TidyResult& result, const TidyOptions& options);

}  // namespace kvocaeio::host
