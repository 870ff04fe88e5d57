/// Numbers of elements by the name of their kind.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvocaeio::host {

/// In the order of appearance.
using KindCounts = std::vector<std::pair<std::string, std::size_t>>;

/// Adds `elements` of one kind; none adds nothing.
void count(KindCounts& kinds, std::string_view name, std::size_t elements = 1);

/// "12 hexahedra, 3 wedges".
std::string asText(const KindCounts& kinds);

}  // namespace kvocaeio::host
