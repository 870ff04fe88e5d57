/// The data in a page: a JSON text and a stream of numbers, which src/data.js of the page reads.
///
/// The JSON of a mesh:
///
///     content    "mesh"
///     title      the file's name; format, unit (may be empty), notes (sentences): for the lists
///     counts     [[27, "nodes"], [1, "element"]]
///     origin     is added to all coordinates of the stream
///     box        min and max of what is seen, without the origin
///     nodes      how many nodes the stream has
///     kinds      name, singular, nodes, dimension and faces (places of the nodes) of each kind of
///     element sections   name, origin, property, thickness and groups; those of one origin and
///     name are
///                one. A group has a kind, the number of its elements that are in the stream, that
///                of all (total), and hasOids.
///     findings   level, code, text, advice, count, places [line, column, text], and of what is
///                marked groups and the number of points
///     start      what the page is to begin with: view, theme, finding ...
///
/// The stream of a mesh: x, y, z of each node as reals; their OIDs; for each group of the sections
/// in their order OIDs (the row from 1 where the source has none), nodes (rows of those in the
/// stream) and two octets of bits for each element: faces that are seen, and faces that border on
/// other sections. Then of each finding its groups in the same way and its points, rows of nodes.
/// `Base64Stream` tells how numbers are written.
///
/// The JSON of a package has bodies (name, kind, center, size, isBall, colour), profiles (number,
/// name, colour), wires (profile, diameter, points), and of the above content, title, format, unit,
/// counts, notes, box, findings and start; its stream the points of all wires.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "file_report.h"

namespace kvocaeio::host {

struct Mesh;
struct PackageScene;

/// What a page says of its file, and begins with.
struct PageHead {
    std::string title;
    std::string format;
    Json start;
};

/// What was written, for the report.
struct PageSize {
    std::size_t faces = 0;
    std::size_t marked = 0;  ///< findings that a click on flies to
};

/// Write the page to the file at `path`. Throw `FileError` where the disk does not take it.
PageSize writePage(const Mesh& mesh, const PageHead& head, const std::string& path);
void writePage(const PackageScene& scene, const PageHead& head, const std::string& path);

}  // namespace kvocaeio::host
