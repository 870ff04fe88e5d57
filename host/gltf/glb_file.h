/// Binary glTF files: a JSON document with the bytes that it describes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "import_findings.h"
#include "note.h"

namespace kvocaeio::host {

/// In metres, x to the right, y up, z to the viewer.
using GltfPoint = std::array<float, 3>;

/// One scene in the making. All members return the index of what they add.
class GlbFile {
  public:
    /// Corners of faces or lines.
    std::size_t addPoints(std::span<const GltfPoint> points);
    /// Directions of length 1.
    std::size_t addNormals(std::span<const GltfPoint> normals);
    /// Rows of points.
    std::size_t addIndices(std::span<const std::uint32_t> rows);
    /// `color` has red in the lowest byte; with `opacity` below 1 what is behind is seen.
    std::size_t addMaterial(unsigned color, double opacity, bool isSeenFromBehind);
    std::size_t addMesh(Json primitives);
    /// `node` as it stands in the document.
    std::size_t addNode(Json node);

    /// Writes a scene of the node `root`. Throws `FileError`.
    void write(const std::string& path, std::size_t root);

  private:
    std::size_t add(std::string_view table, Json entry);
    /// Appends bytes and describes them, with as many `components` as there are bytes for.
    template <class Number>
    std::size_t addBytes(std::span<const Number> numbers, int componentType, std::string_view type,
                         std::size_t components, int use);

    Json document_ = Json::object();
    std::string bytes_;
};

/// What a mesh is drawn of: the indices of points and rows, and of normals where they are not those
/// of the flat faces.
Json trianglePrimitive(std::size_t points, std::size_t rows, std::size_t material);
Json linePrimitive(std::size_t points, std::size_t rows, std::size_t material);

/// A place or direction in the axes of glTF, of one in which z is up.
template <class Place>
GltfPoint turned(const Place& place, double factor) {
    return {static_cast<float>(place[0] * factor), static_cast<float>(place[2] * factor),
            static_cast<float>(-place[1] * factor)};
}

/// The name of the file at `path`, without its folder.
std::string nameIn(const std::string& path);

/// Metres in one of `unit` of `kLengthUnits`.
double metresIn(std::string_view unit);

/// Remarks that lengths are taken for millimetres, where `unit` is empty.
void remarkUnit(std::string_view unit, std::vector<Note>& remarks);

}  // namespace kvocaeio::host
