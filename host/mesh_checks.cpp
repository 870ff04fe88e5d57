/// The checks that need more than a line.
#include "mesh_checks.h"

#include <algorithm>
#include <numeric>
#include <string>

#include "file_report.h"

namespace kvocaeio::host {

void requireMesh(std::size_t nodes, std::size_t elements, std::string_view format) {
    if (nodes == 0 && elements == 0)
        throw FileError("holds no nodes and no elements of " + std::string(format), "nothing-read");
}

void refuseNormalised(bool isWanted) {
    if (isWanted)
        throw FileError("has no normalised mesh: only Abaqus decks have one", "not-normalised");
}

OidRepeats findRepeats(std::span<const int> oids,
                       const std::function<bool(std::size_t first, std::size_t later)>& alike) {
    OidRepeats repeats;
    // Nearly every file lists its OIDs in ascending order: then there is nothing to sort.
    if (std::adjacent_find(oids.begin(), oids.end(), std::greater_equal<>()) == oids.end())
        return repeats;
    std::vector<std::size_t> rows(oids.size());
    std::iota(rows.begin(), rows.end(), std::size_t{0});
    std::stable_sort(rows.begin(), rows.end(),
                     [&](std::size_t a, std::size_t b) { return oids[a] < oids[b]; });
    std::size_t first = 0;
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const int oid = oids[rows[i]];
        if (oid != oids[rows[first]])
            first = i;
        else if (alike(rows[first], rows[i]))
            repeats.alike.push_back(rows[i]);
        else if (repeats.conflicts.empty() || repeats.conflicts.back() != oid)
            repeats.conflicts.push_back(oid);
    }
    std::sort(repeats.alike.begin(), repeats.alike.end());
    return repeats;
}

}  // namespace kvocaeio::host
