/// A mesh of solid elements on its way from one format to another.
#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvocaeio::host {

struct SolidMesh {
    struct Element {
        std::size_t section;
        int corners;               ///< 4, 6 or 8: tetrahedron, wedge, hexahedron
        std::array<int, 8> nodes;  ///< as many as there are corners; rows of `nodes`
    };

    std::vector<std::array<double, 3>> nodes;
    std::vector<Element> elements;
    std::vector<std::string> sections;  ///< names
    /// What the source holds and the target will not, a line for the user each.
    std::vector<std::string> losses;
    /// What else the user had better know, likewise.
    std::vector<std::string> remarks;
};

/// How a mesh of solids becomes a file of one format, through the library.
struct MeshWriter {
    /// Writes the file; false where that fails. `unit` is the mesh's length unit.
    bool (*write)(const SolidMesh& mesh, const std::string& path, const std::string& unit);
    /// What a complete file ends with, line ends left out.
    std::string_view ending;
    /// Notes what the file cannot hold of the mesh, or asks for beside it.
    void (*takeNotes)(SolidMesh& mesh);
};

/// The nodes of an element as ids that count from 1.
std::array<int, 8> idsOf(const SolidMesh::Element& element);

/// Adds "`number` `what`" to `notes`; none are not worth a note.
void note(std::vector<std::string>& notes, std::size_t number, const std::string& what);

/// Remarks by how much coordinates change that are written with `decimals`; `what` names that form.
void remarkOnRounding(SolidMesh& mesh, std::chars_format form, int decimals, const char* what);

}  // namespace kvocaeio::host
