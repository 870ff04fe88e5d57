/// What a user has to know of a mesh that goes from one format to another.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "kind_counts.h"

namespace kvocaeio::host {

struct Note {
    std::string code;    ///< for programs: small letters and hyphens
    std::size_t number;  ///< of what was found; 1 where nothing is counted
    std::string text;    ///< for people, with the number
};

/// Notes that `number` things are left out, "1 pyramid"; none are not worth a note. `things` is a
/// plural, `rest` goes after it.
void leaveOut(std::vector<Note>& losses, std::string_view code, std::size_t number,
              std::string_view things, std::string_view rest = "");

/// The same of elements by kind.
void leaveOut(std::vector<Note>& losses, const KindCounts& kinds);

}  // namespace kvocaeio::host
