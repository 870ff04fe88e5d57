/// What a user has to know of a mesh that goes from one format to another.
#pragma once

#include <cstddef>
#include <string>

namespace kvocaeio::host {

struct Note {
    std::string code;    ///< for programs: small letters and hyphens
    std::size_t number;  ///< of what was found; 1 where nothing is counted
    std::string text;    ///< for people, with the number
};

}  // namespace kvocaeio::host
