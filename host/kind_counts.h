/// Numbers of elements by the name of their kind.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvocaeio::host {

/// In the order of appearance, by names in the plural.
using KindCounts = std::vector<std::pair<std::string, std::size_t>>;

/// Adds `elements` of one kind; none adds nothing.
void count(KindCounts& kinds, std::string_view name, std::size_t elements = 1);

/// "12 hexahedra, 1 wedge".
std::string asText(const KindCounts& kinds);

/// A kind's name as a code for programs: "quadratic-tetrahedra", "unknown-type".
std::string kindCode(std::string_view name);

}  // namespace kvocaeio::host
