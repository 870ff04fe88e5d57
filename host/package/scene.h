/// The bodies and wires of a chip package, for the report, and for the commands that show them or
/// write them in another format. All lengths are millimetres until they are scaled.
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

enum class PackageSource { k3di, kCadence };

struct PackageBody {
    std::string kind;
    std::string name;
    std::array<double, 3> center;
    std::array<double, 3> size;     ///< x, y, z; of a ball all three are the diameter
    std::optional<unsigned> color;  ///< packed, red in the lowest byte; Cadence designs have none
    bool isBall;
};

struct PackageWire {
    int profile;
    double diameter;
    std::vector<double> path;  ///< x, y, z of each point
};

/// The wires of one profile.
struct WireProfile {
    int number = 0;
    std::optional<std::string> name;  ///< none where the file has no such wire model
    std::size_t wires = 0;
    std::size_t points = 0;
    double smallestDiameter = 0.0;
    double largestDiameter = 0.0;
    double length = 0.0;  ///< of all wires together
    std::optional<unsigned> color;
};

struct PackageScene {
    std::vector<PackageBody> bodies;
    std::vector<PackageWire> wires;
    std::vector<WireProfile> profiles;  ///< by number; wires name no others
    std::string lengthUnit = "mm";      ///< empty where it is not known
    std::vector<Note> losses;
    std::vector<Note> remarks;
    ImportFindings imported;
};

/// The bodies as the reader returns them: a size is negative where the file exchanges the ends, and
/// of a ball only the first has a meaning.
std::vector<PackageBody> takeBodies(CKVOCadenceReader& reader, PackageSource source);

/// The profiles that wires name, and all that the file describes, by number.
std::vector<WireProfile> takeProfiles(CKVOCadenceReader& reader);

/// Multiplies all lengths. Their unit is not known then.
void scale(PackageScene& scene, double factor);

/// All that an import has left, but bodies and wires without a place or an extent.
PackageScene takeScene(CKVOCadenceReader& reader, PackageSource source);

}  // namespace kvocaeio::host
