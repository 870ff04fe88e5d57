/// What `kvocaeio convert` says of a conversion.
#pragma once

#include <optional>
#include <string>

#include "convert/conversion.h"
#include "convert/convert.h"

namespace kvocaeio::host {

/// For a person.
std::string conversionText(const Conversion& conversion, const ConvertOptions& options);

/// For programs, in the layout of docs/convert.schema.json; `conversion` is null where nothing
/// was written.
std::string conversionJson(const Conversion* conversion, const ConvertOptions& options,
                           const std::optional<Note>& failure);

}  // namespace kvocaeio::host
