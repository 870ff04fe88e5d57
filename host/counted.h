/// Numbers of things in words.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kvocaeio::host {

/// "1 node", "2 nodes": `plural` ends with the noun in the plural, or with what it is of
/// ("rows of nodes").
std::string counted(std::size_t number, std::string_view plural);

}  // namespace kvocaeio::host
