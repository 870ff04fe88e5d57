/// A mesh of solid elements on its way from one format to another.
#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "import_findings.h"
#include "note.h"

namespace kvocaeio::host {

struct SolidMesh {
    struct Element {
        std::size_t section;
        int corners;               ///< 4, 6 or 8: tetrahedron, wedge, hexahedron
        std::array<int, 8> nodes;  ///< as many as there are corners; rows of `nodes`
        int oid;
    };

    std::vector<std::array<double, 3>> nodes;
    std::vector<int> nodeOids;  ///< per node
    std::vector<Element> elements;
    std::vector<std::string> sections;  ///< names
    /// What the source holds and the target will not.
    std::vector<Note> losses;
    /// What else the user had better know.
    std::vector<Note> remarks;
    /// What the library's report says of the source.
    ImportFindings imported;
};

/// How a mesh of solids becomes a file of one format, through the library.
struct MeshWriter {
    /// Writes the file; false where that fails. `unit` is the mesh's length unit.
    bool (*write)(const SolidMesh& mesh, const std::string& path, const std::string& unit);
    /// What a complete file ends with, line ends left out.
    std::string_view ending;
    /// The largest OID that the file can hold; 0 where OIDs are the numbers from 1 on, without
    /// gaps.
    int largestOid;
    /// How it writes coordinates, and that in words.
    std::chars_format form;
    int decimals;
    std::string_view formName;
    /// Notes what the file cannot hold of the mesh, or asks for beside it.
    void (*takeNotes)(SolidMesh& mesh);
};

/// The nodes of an element as OIDs.
std::array<int, 8> oidsOf(const SolidMesh& mesh, const SolidMesh::Element& element);

}  // namespace kvocaeio::host
