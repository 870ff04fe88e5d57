/// The formats that the host knows, and how it tells them apart.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform.h"
#include "report.h"

namespace kvocaeio::host {

struct SolidMesh;

/// One format: each has a source file of its own that defines one of these, and a row in the table
/// of format.cpp.
struct Format {
    std::string_view name;
    std::span<const std::string_view> extensions;  ///< with the point, in lower case
    /// Whether `head`, the first part of a file, can only be of this format.
    bool (*recognises)(std::string_view head);
    /// Reads the file through the library. The library's progress lines go to `progress`.
    std::unique_ptr<Report> (*read)(const std::string& path, PrintTarget progress);
    /// The file's solids, for `convert`; null where the format is not converted.
    SolidMesh (*takeSolids)(const std::string& path, PrintTarget progress);
};

extern const Format k3diFormat;
extern const Format kAbaqusFormat;
extern const Format kCadenceFormat;
extern const Format kNastranFormat;
extern const Format kPatranFormat;

/// What stands behind the last point of a file's name, with the point, in lower case.
std::string extensionOf(const std::string& path);

/// The format of the file at `path`, told by its content, else by its extension. Throws `FileError`
/// when the file cannot be read or is of no known format.
const Format& findFormat(const std::string& path);

}  // namespace kvocaeio::host
