/// What goes into the rewriting of a deck, and what comes out of it.
#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "tidy/origin_map.h"

namespace kvocaeio::tidy {

/// A deck by its path.
struct Deck {
    std::filesystem::path path;
    std::string name;  ///< as the host has it, for findings and origins; a wide one in UTF-8
};

/// What a rewriting leaves beside the new deck.
struct Outcome {
    bool isNeeded = false;   ///< whether anything had to be changed; if not, nothing was written
    double deviation = 0.0;  ///< largest difference of a coordinate to that of the original
    Origins origins;
    std::vector<std::filesystem::path> files;  ///< all that were read

    /// Whether the file at `path`, by whatever name, is one of these.
    bool hasRead(const std::filesystem::path& path) const {
        return std::ranges::any_of(files, [&](const std::filesystem::path& file) {
            std::error_code error;
            return std::filesystem::equivalent(path, file, error);
        });
    }
};

}  // namespace kvocaeio::tidy
