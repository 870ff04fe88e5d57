/// A mesh of solid elements on its way from one format to another.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform.h"

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

/// Adds "`number` `what`" to `notes`; none are not worth a note.
inline void note(std::vector<std::string>& notes, std::size_t number, const std::string& what) {
    if (number != 0)
        notes.push_back(std::to_string(number) + " " + what);
}

/// The normalised solids of an Abaqus deck.
SolidMesh takeAbaqusSolids(const std::string& path, PrintTarget progress);

/// The solids of a Patran neutral file, as `CPatranReader` gives them.
SolidMesh takePatranSolids(const std::string& path, PrintTarget progress);

}  // namespace kvocaeio::host
