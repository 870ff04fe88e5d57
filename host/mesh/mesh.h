/// A mesh of any elements, as one of the readers returns it, on its way to another format or to the
/// eye.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "import_findings.h"
#include "mesh/cell_kind.h"
#include "note.h"

namespace kvocaeio::host {

/// What elements of a section were in the source.
enum class Origin { kSolid, kShell, kLoadFace, kSurfaceFace, kLine };

/// "solid", "shell", "load", "surface", "line".
std::string_view nameOf(Origin origin);

/// Elements of one kind from one section of the source.
struct MeshSection {
    std::string name;  ///< of the set or property; may be empty and need not be unique
    CellKind kind = CellKind::kHexahedron8;
    Origin origin = Origin::kSolid;
    std::size_t source = 0;  ///< the source's section, from 0: several kinds may come from one
    int property = 0;        ///< property id; 0 where the source has none
    double thickness = 0.0;  ///< of shells; 0 where it is not known
    std::vector<int> oids;   ///< per element; empty where the source has none
    std::vector<int> nodes;  ///< per element all its nodes, as rows of the mesh's nodes

    /// Whether it holds faces of loads or surfaces, which are no elements of the source.
    bool isOfFaces() const { return origin == Origin::kLoadFace || origin == Origin::kSurfaceFace; }
    std::size_t elements() const { return nodes.size() / cellShape(kind).nodes; }
    /// The nodes of the element in `row`, as many as the kind has.
    const int* element(std::size_t row) const { return nodes.data() + row * cellShape(kind).nodes; }
};

/// The same for sections that are one thing to the user: of one name, origin and property; those
/// without a name from one section of the source.
using SectionKey = std::tuple<Origin, int, std::string_view, std::size_t>;
SectionKey sectionKeyOf(const MeshSection& section);

struct Mesh {
    std::vector<double> places;         ///< x, y, z of each node
    std::vector<int> nodeOids;          ///< per node; empty where the source has none
    std::vector<int> phantoms;          ///< rows of nodes that only a blank line of the source made
    std::vector<MeshSection> sections;  ///< none is empty
    bool normalised = false;            ///< the normalised mesh of a deck, else what the deck lists
    std::string lengthUnit;             ///< "mm"; empty where nobody told it
    /// What the source holds and this does not.
    std::vector<Note> losses;
    /// What else the user had better know.
    std::vector<Note> remarks;
    /// What the library's report says of the source.
    ImportFindings imported;

    std::size_t nodes() const { return places.size() / 3; }
    std::size_t elements() const;
    /// The section of that kind among those from `first` on, which is made like `model` where it is
    /// not there.
    MeshSection& sectionOf(CellKind kind, std::size_t first, const MeshSection& model);
    /// Drops the faces of loads and surfaces, and returns how many there were.
    std::size_t dropFaces();
    const double* place(int node) const {
        return places.data() + 3 * static_cast<std::size_t>(node);
    }
};

}  // namespace kvocaeio::host
