/// What must not pass as a mesh: nothing at all, coordinates that are no numbers, OIDs of two
/// meanings.
#pragma once

#include <cmath>
#include <cstddef>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

namespace kvocaeio::host {

/// Throws `FileError` where a file gave neither nodes nor elements; `format` is its kind with the
/// article, "a Patran neutral file".
void requireMesh(std::size_t nodes, std::size_t elements, std::string_view format);

/// Throws `FileError` where the normalised mesh `isWanted` of a file that is no Abaqus deck.
void refuseNormalised(bool isWanted);

/// Whether x, y, z at `place` are all finite numbers.
template <class Real>
bool isFinitePlace(const Real* place) {
    return std::isfinite(place[0]) && std::isfinite(place[1]) && std::isfinite(place[2]);
}

/// OIDs that have several rows of a table.
struct OidRepeats {
    std::vector<std::size_t> alike;  ///< rows with the content of the first row of their OID
    std::vector<int> conflicts;      ///< OIDs with rows of different content, ascending, each once
};

/// Finds the OIDs that stand more than once in `oids`. `alike` tells whether two rows have the same
/// content; it is asked of rows of one OID only, the first of them and a later one.
OidRepeats findRepeats(std::span<const int> oids,
                       const std::function<bool(std::size_t first, std::size_t later)>& alike);

}  // namespace kvocaeio::host
