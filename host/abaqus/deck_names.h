/// Names of the sets of a deck that is written.
#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "mesh/mesh.h"

namespace kvocaeio::host {

/// Sections keep their names where a deck can hold them. All that have one name are one set;
/// solids, shells and bars of one name have a set of their own beside it, to which a section can be
/// given.
class DeckNames {
  public:
    explicit DeckNames(const Mesh& mesh);

    /// Elements that one section of the deck describes.
    struct SectionSet {
        std::string name;
        std::vector<const MeshSection*> sections;
        bool isExtra;  ///< no block of elements has this name
    };

    /// The set that the elements of a section of the mesh are written to; may be empty.
    const std::string& ofElements(std::size_t section) const { return ofElements_[section]; }
    const std::vector<SectionSet>& sets() const { return sets_; }

    /// `name`, or one like it where that is used.
    std::string unused(const std::string& name);

    void takeNotes(std::vector<Note>& remarks) const;

  private:
    std::vector<std::string> ofElements_;
    std::vector<SectionSet> sets_;
    std::set<std::string> used_;
    std::size_t changed_ = 0;
};

}  // namespace kvocaeio::host
