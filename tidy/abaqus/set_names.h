/// The names of sets in the new deck.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "tidy/abaqus/deck_lines.h"
#include "tidy/abaqus/frames.h"

namespace kvocaeio::tidy::abaqus {

/// Names as they are in the deck, as far as the reader takes them so, and each once.
class SetNames {
  public:
    /// Names all sets that have elements, or a shell section, in any frame.
    SetNames(const Frames& frames, DeckLines& lines);

    /// The name of a set of a frame, as it is looked up there, in the new deck.
    const std::string& of(int instance, const std::string& name) const;

    /// A name for a new set, like the one given.
    std::string makeNew(std::string_view name);

  private:
    using Key = std::pair<int, std::string>;  // a frame's instance, and the name there

    void add(const Key& key, const std::string& written, const Place& place, DeckLines& lines);
    std::string unique(const std::string& name);

    std::map<Key, std::string> names_;
    std::set<std::string> taken_;
};

/// A name as `*ELSET` and the lines of a surface can have it.
std::string linkedName(std::string name);

}  // namespace kvocaeio::tidy::abaqus
