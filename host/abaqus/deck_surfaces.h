/// Faces of loads and surfaces, as a deck describes them: by elements and numbers of faces.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "mesh/mesh.h"

namespace kvocaeio::host {

class DeckSurfaces {
  public:
    /// Finds the solids of all faces. Elements have OIDs.
    explicit DeckSurfaces(const Mesh& mesh);

    /// The same face of several elements, none of them twice, in the order of the source.
    struct Run {
        int face;
        std::vector<int> elements;  ///< OIDs
    };
    struct Surface {
        std::string_view name;
        std::vector<Run> runs;
    };

    /// None without a face.
    const std::vector<Surface>& surfaces() const { return surfaces_; }

    void takeNotes(std::vector<Note>& losses, std::vector<Note>& remarks) const;

  private:
    std::vector<Surface> surfaces_;
    std::size_t others_ = 0;  // which no solid has
};

}  // namespace kvocaeio::host
