/// Findings folded by kind.
#include "text/findings.h"

#include <algorithm>

namespace kvocaeio::text {

void Findings::note(std::size_t kind, std::size_t line, std::size_t column,
                    std::string_view what) noexcept {
    Entry& entry = entries_[kind];
    if (entry.count < kMostPlaces) {
        FindingPlace& place = entry.places[entry.count];
        place.line = line;
        place.column = column;
        what = what.substr(0, what.find_last_not_of("\r\n") + 1);
        place.length = std::min(what.size(), FindingPlace::kMostText);
        std::copy_n(what.begin(), place.length, place.characters.begin());
    }
    ++entry.count;
}

std::span<const FindingPlace> Findings::places(std::size_t kind) const {
    const Entry& entry = entries_[kind];
    return {entry.places.data(), std::min(entry.count, kMostPlaces)};
}

}  // namespace kvocaeio::text
