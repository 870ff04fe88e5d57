/// The formats that the host knows, and how it tells them apart.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "file_report.h"
#include "platform.h"

namespace kvocaeio::host {

struct Mesh;
struct PackageScene;
struct SolidMesh;

/// How a file's mesh is taken for another format or a view.
struct MeshRequest {
    bool normalised = false;  ///< of an Abaqus deck, the normalised one
    bool force = false;       ///< OIDs that are defined twice with different content are accepted
    PrintTarget progress = PrintTarget::kNowhere;  ///< for the library's progress lines
    bool findsAll =
        false;  ///< of an Abaqus deck, with what sorting it finds, whatever mesh is taken
};

/// One format: each has a folder of its own that defines one of these, and a row in the table of
/// formats.cpp.
struct Format {
    std::string_view name;
    std::string_view code;                         ///< the same for programs
    std::span<const std::string_view> extensions;  ///< with the point, in lower case
    /// Whether `head`, the first part of a file, can only be of this format.
    bool (*recognises)(std::string_view head);
    /// Reads the file through the library. The library's progress lines go to `progress`.
    std::unique_ptr<FileReport> (*read)(const std::string& path, PrintTarget progress);
    /// Imports the file with every reader of the format and takes what `report` says of each.
    ImportFindings (*check)(const std::string& path, PrintTarget progress,
                            CKVOImportReport& report);
    /// The file's solids, for `convert`; null where the format is not converted.
    SolidMesh (*takeSolids)(const std::string& path, const MeshRequest& request) = nullptr;
    /// All that the reader returns, for `loadMesh`; null where the format holds no mesh.
    Mesh (*takeMesh)(const std::string& path, const MeshRequest& request) = nullptr;
    /// The bodies and wires, for `loadScene`; null where the format holds no package.
    PackageScene (*takeScene)(const std::string& path, const MeshRequest& request) = nullptr;
    /// Of `CKVODeckTidy::Format`; 0 where files need no tidying.
    int tidyFormat = 0;
};

/// The end of a file's name from its last point on, in lower case.
std::string extensionOf(const std::string& path);

/// What is made of a byte order mark that hides the first line of a file from the readers.
enum class MarkRule { kRefuse, kAccept };

/// The format of the file at `path`, told by its content, else by its extension. Throws `FileError`
/// when the file cannot be read or is of no known format.
const Format& findFormat(const std::string& path, MarkRule rule = MarkRule::kRefuse);

/// Whether the content of the file at `path` tells its format.
bool hasKnownContent(const std::string& path);

/// Whether the name of `path` ends as those of one of the formats do.
bool hasKnownExtension(const std::string& path);

}  // namespace kvocaeio::host
