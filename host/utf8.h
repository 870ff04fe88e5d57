/// Characters of UTF-8, one at a time.
#pragma once

#include <cstddef>
#include <string_view>

namespace kvocaeio::host {

struct Character {
    char32_t code;
    std::size_t bytes;  ///< 0 where no character of UTF-8 begins
};

/// The character with which `text`, which is not empty, begins.
Character firstCharacter(std::string_view text);

}  // namespace kvocaeio::host
