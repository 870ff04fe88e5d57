/// Counting by kind, and the counts in words.
#include "kind_counts.h"

#include <algorithm>

#include "counted.h"

namespace kvocaeio::host {

void count(KindCounts& kinds, std::string_view name, std::size_t elements) {
    const auto known = std::find_if(kinds.begin(), kinds.end(),
                                    [&](const auto& kind) { return kind.first == name; });
    if (known != kinds.end())
        known->second += elements;
    else if (elements != 0)
        kinds.emplace_back(name, elements);
}

std::string asText(const KindCounts& kinds) {
    std::string words;
    for (const auto& [name, elements] : kinds)
        words += (words.empty() ? "" : ", ") + counted(elements, name);
    return words;
}

std::string kindCode(std::string_view name) {
    constexpr std::string_view kOf = "of ";
    std::string code(name.substr(name.starts_with(kOf) ? kOf.size() : 0));
    std::replace(code.begin(), code.end(), ' ', '-');
    return code;
}

}  // namespace kvocaeio::host
