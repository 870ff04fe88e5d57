/// The bodies and wires of a chip package, for the commands that show them or write them in another
/// format. All lengths are millimetres.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "import_findings.h"
#include "note.h"

class CKVOCadenceReader;

namespace kvocaeio::host {

struct PackageScene {
    struct Body {
        std::string kind;  ///< "die", "solder ball", as the report names them
        std::string name;
        std::array<double, 3> center;
        std::array<double, 3> size;  ///< none is negative; of a ball all three are the diameter
        bool isBall;
        std::optional<unsigned> color;  ///< packed, red in the lowest byte; Cadence has none
    };
    struct Wire {
        int profile;  ///< number of the wire model
        double diameter;
        std::vector<double> path;  ///< x, y, z of each point
    };
    /// The wires of one profile.
    struct Profile {
        int number;
        std::optional<std::string> name;  ///< none where the file has no such wire model
        std::optional<unsigned> color;
    };

    std::vector<Body> bodies;
    std::vector<Wire> wires;
    std::vector<Profile> profiles;  ///< all that wires name, by their numbers
    std::vector<Note> losses;
    std::vector<Note> remarks;
    ImportFindings imported;
};

}  // namespace kvocaeio::host
