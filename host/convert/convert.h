/// The command `kvocaeio convert`.
#pragma once

#include <string>

namespace kvocaeio::host {

struct ConvertOptions {
    std::string source;
    std::string target;       ///< its extension names the format
    std::string unit = "mm";  ///< length unit that the header of a Nastran deck names
    bool verbose = false;     ///< the library's progress lines go to standard error, else nowhere
};

/// Writes the solids of the source as the target and says on standard output what was written and
/// what could not be carried over. Throws `FileError` on failure; the target is as it was then.
void runConvert(const ConvertOptions& options);

}  // namespace kvocaeio::host
