/// Standard output, with the failures that a full disk or a closed pipe make.
#pragma once

#include <string_view>

namespace kvocaeio::host {

/// Writes all of `output` to standard output at once. Throws where that fails.
void writeOut(std::string_view output);

}  // namespace kvocaeio::host
