/// What is wrong with a mesh as such, whatever format it comes from.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "text/findings.h"

namespace kvocaeio::report {

enum class MeshFinding : unsigned char {
    kCoordinateNotFinite,
    kNodeRepeated,
    kVolumeNotPositive,
    kNodeUnused,
};

/// In the order of `MeshFinding`.
extern const std::array<text::FindingKind, 4> kMeshFindingKinds;

inline const text::FindingKind& rowOf(MeshFinding finding) {
    return kMeshFindingKinds[static_cast<std::size_t>(finding)];
}

/// Coordinates as a reader keeps them: of node row r they stand at `first` + r * `stride`.
template <class Number>
struct CoordinateTable {
    const Number* first;
    std::size_t stride;
    std::size_t rows;
};

/// Goes over a mesh in plain tables: elements one by one, then nodes. May throw `std::bad_alloc`.
template <class Number>
class MeshAudit {
  public:
    static constexpr std::uint32_t kNoRow = 0xFFFFFFFF;

    MeshAudit(text::Findings& findings, const CoordinateTable<Number>& coordinates);

    /// `rows`: the node rows of an element, in the format's order; `kNoRow`, or what is no row, for
    /// a node that is not defined. A solid has a volume if its nodes are 4 (tetrahedron), 5
    /// (pyramid), 6 (wedge) or 8 (hexahedron) `corners`; other elements have 0 corners here.
    void element(long long oid, std::span<const std::uint32_t> rows, std::size_t corners);

    /// All nodes count as used, as where the elements that are handed out are not all of the mesh.
    void useAll() { isUsed_.assign(coordinates_.rows, true); }

    /// Finishes with the nodes: `oidOf(row)` is the OID of a node, 0 for a row without a node.
    template <class OidOf>
    void nodes(const OidOf& oidOf) {
        for (std::size_t row = 0; row < coordinates_.rows; ++row)
            if (!isUsed_[row] || !isFinite(row)) [[unlikely]]
                noteNode(row, oidOf(row));
    }

  private:
    bool isFinite(std::size_t row) const;
    bool hasVolume(std::span<const std::uint32_t> corners) const;
    void noteNode(std::size_t row, long long oid);

    text::Findings& findings_;
    CoordinateTable<Number> coordinates_;
    std::vector<bool> isUsed_;
};

extern template class MeshAudit<float>;
extern template class MeshAudit<double>;

}  // namespace kvocaeio::report
