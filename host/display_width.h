/// How much room text takes on a terminal.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvocaeio::host {

/// Columns that `text` takes on a terminal: none for a combining mark, two for a wide character of
/// East Asia or an emoji, one for any other, also for a byte that is no UTF-8.
std::size_t displayWidth(std::string_view text);

/// `name` in at most `width` columns: where it is wider, "..." stands for its middle.
std::string cutInTheMiddle(std::string_view name, std::size_t width);

/// `text` in lines of at most `width` columns, broken at blanks; a word that is wider stands alone.
/// A number stays with the word after it, and numbers in parentheses stay together.
std::vector<std::string> wrapped(std::string_view text, std::size_t width);

}  // namespace kvocaeio::host
