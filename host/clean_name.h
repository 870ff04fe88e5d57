/// Names that others chose, made safe to show on a terminal.
#pragma once

#include <string>
#include <string_view>

namespace kvocaeio::host {

/// `name` with every character that could steer a terminal or mislead a reader replaced by '?':
/// control characters, also those above 0x7f, line and paragraph separators, marks that turn the
/// direction of writing, and bytes that are no UTF-8. The rest of UTF-8 stays as it is.
std::string cleanName(std::string_view name);

}  // namespace kvocaeio::host
