/// The command `kvocaeio convert`.
#pragma once

#include <array>
#include <string>

namespace kvocaeio::host {

/// Those that the writer of Nastran decks knows.
inline constexpr std::array<const char*, 4> kLengthUnits = {"m", "cm", "mm", "inch"};
/// The one that it names where none is given.
inline constexpr const char* kUsualLengthUnit = "mm";

struct ConvertOptions {
    std::string source;        ///< "-" is standard input
    std::string target;        ///< its extension names the format
    std::string unit;          ///< length unit of the coordinates; empty where it was not told
    double scale = 1.0;        ///< coordinates are multiplied by it
    bool wideNastran = false;  ///< Nastran decks of any elements in wide fields
    bool compress = false;     ///< arrays of VTK files in compressed blocks
    bool normalised = false;   ///< take the normalised mesh of an Abaqus deck
    bool force = false;        ///< write in spite of OIDs that are defined twice
    bool strict = false;       ///< what is left out makes the conversion fail
    bool json = false;         ///< report as JSON
    bool quiet = false;        ///< no report
    bool asIs = false;         ///< read the source as it is, without tidying
    bool verbose = false;      ///< the library's progress lines go to standard error, else nowhere

    std::string lengthUnit() const { return unit.empty() ? kUsualLengthUnit : unit; }
};

/// Writes the mesh or package of the source as the target. Reports on standard output what was
/// written and what could not be carried over, and on standard error why it failed; the target is
/// as it was then. True when nothing failed; with `strict`, when nothing was left out either.
bool runConvert(const ConvertOptions& options);

}  // namespace kvocaeio::host
