/// The mesh or package of a file, for the commands that show it or write it in another format.
#pragma once

#include "formats.h"
#include "input_file.h"
#include "mesh/mesh.h"
#include "package/scene.h"

namespace kvocaeio::host {

struct LoadOptions {
    bool normalised = false;  ///< take the normalised mesh of an Abaqus deck
    bool force = false;       ///< accept errors of the import and OIDs that are defined twice
    bool asIs = false;        ///< read a deck as it is, without tidying
    bool verbose = false;     ///< the library's progress lines go to standard error, else nowhere
    bool findsAll = false;    ///< with what sorting an Abaqus deck finds, whatever mesh is taken
};

/// Reads the mesh of `file`, which the user calls `name` and which is of `format`
/// (`findFormatToTidy`); decks are tidied where they need it. Throws `FileError` where there is no
/// mesh to take, and without `force` where it would not be that of the source.
Mesh loadMesh(const InputFile& file, const std::string& name, const Format& format,
              const LoadOptions& options);

/// The same for a package.
PackageScene loadScene(const InputFile& file, const std::string& name, const Format& format,
                       const LoadOptions& options);

/// The same for the reports of a Cadence design in `folder`.
PackageScene loadReports(const std::string& folder, const LoadOptions& options);

}  // namespace kvocaeio::host
