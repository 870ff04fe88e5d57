/// The tables of the document, and the two chunks of the file.
#include "gltf/glb_file.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

#include "file_report.h"
#include "file_system.h"
#include "output_file.h"
#include "version_text.h"

namespace kvocaeio::host {

namespace {

static_assert(std::endian::native == std::endian::little, "numbers of the file are little-endian");

constexpr int kFloat = 5126;
constexpr int kUnsignedInt = 5125;
constexpr int kVertices = 34962;
constexpr int kElementRows = 34963;
constexpr int kLines = 1;
constexpr std::size_t kHeaderSize = 12;
constexpr std::size_t kChunkHeaderSize = 8;

/// The linear value of a byte of a colour as screens have it.
double linear(unsigned byte) {
    const double value = byte / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

std::string bytesOf(std::size_t number) {
    std::string bytes;
    for (const unsigned shift : {0u, 8u, 16u, 24u})
        bytes += static_cast<char>(number >> shift & 0xffu);
    return bytes;
}

void fillUp(std::string& chunk, char filler) {
    chunk.append((4 - chunk.size() % 4) % 4, filler);
}

}  // namespace

std::size_t GlbFile::add(std::string_view table, Json entry) {
    Json& entries = document_[std::string(table)];
    entries.push_back(std::move(entry));
    return entries.size() - 1;
}

template <class Number>
std::size_t GlbFile::addBytes(std::span<const Number> numbers, int componentType,
                              std::string_view type, std::size_t components, int use) {
    const std::size_t view = add("bufferViews", {{"buffer", 0},
                                                 {"byteOffset", bytes_.size()},
                                                 {"byteLength", numbers.size_bytes()},
                                                 {"target", use}});
    bytes_.append(reinterpret_cast<const char*>(numbers.data()), numbers.size_bytes());
    return add("accessors", {{"bufferView", view},
                             {"componentType", componentType},
                             {"count", numbers.size_bytes() / (4 * components)},
                             {"type", type}});
}

std::size_t GlbFile::addPoints(std::span<const GltfPoint> points) {
    GltfPoint least = points.front();
    GltfPoint largest = least;
    for (const GltfPoint& point : points)
        for (std::size_t axis = 0; axis < 3; ++axis) {
            least[axis] = std::min(least[axis], point[axis]);
            largest[axis] = std::max(largest[axis], point[axis]);
        }
    const std::size_t index = addBytes(points, kFloat, "VEC3", 3, kVertices);
    document_["accessors"][index]["min"] = least;
    document_["accessors"][index]["max"] = largest;
    return index;
}

std::size_t GlbFile::addNormals(std::span<const GltfPoint> normals) {
    return addBytes(normals, kFloat, "VEC3", 3, kVertices);
}

std::size_t GlbFile::addIndices(std::span<const std::uint32_t> rows) {
    return addBytes(rows, kUnsignedInt, "SCALAR", 1, kElementRows);
}

std::size_t GlbFile::addMaterial(unsigned color, double opacity, bool isSeenFromBehind) {
    const Json factor = {linear(color & 0xffu), linear(color >> 8 & 0xffu),
                         linear(color >> 16 & 0xffu), opacity};
    Json material = {
        {"pbrMetallicRoughness",
         {{"baseColorFactor", factor}, {"metallicFactor", 0.0}, {"roughnessFactor", 0.8}}}};
    if (opacity < 1.0)
        material["alphaMode"] = "BLEND";
    if (isSeenFromBehind)
        material["doubleSided"] = true;
    return add("materials", std::move(material));
}

std::size_t GlbFile::addMesh(Json primitives) {
    return add("meshes", {{"primitives", std::move(primitives)}});
}

std::size_t GlbFile::addNode(Json node) {
    return add("nodes", std::move(node));
}

void GlbFile::write(const std::string& path, std::size_t root) {
    document_["asset"] = {{"version", "2.0"}, {"generator", "kvocaeio " + libraryVersion()}};
    document_["scene"] = 0;
    document_["scenes"] = Json::array({{{"nodes", {root}}}});
    document_["buffers"] = Json::array({{{"byteLength", bytes_.size()}}});
    // Names may be of any encoding; bytes that are no UTF-8 become replacement characters.
    std::string text = document_.dump(-1, ' ', false, Json::error_handler_t::replace);
    fillUp(text, ' ');
    fillUp(bytes_, '\0');
    const std::size_t size = kHeaderSize + 2 * kChunkHeaderSize + text.size() + bytes_.size();
    if (size > std::numeric_limits<std::uint32_t>::max())
        throw FileError("cannot be written: glTF files hold at most 4 GiB", "too-large");
    OutputFile file(path);
    file << "glTF" << bytesOf(2) << bytesOf(size);
    file << bytesOf(text.size()) << "JSON" << text;
    file << bytesOf(bytes_.size()) << std::string_view("BIN\0", 4) << bytes_;
    file.finish();
}

Json trianglePrimitive(std::size_t points, std::size_t rows, std::size_t material) {
    return {{"attributes", {{"POSITION", points}}}, {"indices", rows}, {"material", material}};
}

Json linePrimitive(std::size_t points, std::size_t rows, std::size_t material) {
    Json lines = trianglePrimitive(points, rows, material);
    lines["mode"] = kLines;
    return lines;
}

std::string nameIn(const std::string& path) {
    return path.substr(folderLength(path));
}

double metresIn(std::string_view unit) {
    struct Unit {
        std::string_view name;
        double metres;
    };
    constexpr std::array<Unit, 4> kUnits = {
        {{"m", 1.0}, {"cm", 0.01}, {"mm", 0.001}, {"inch", 0.0254}}};
    return std::ranges::find(kUnits, unit, &Unit::name)->metres;
}

void remarkUnit(std::string_view unit, std::vector<Note>& remarks) {
    if (unit.empty())
        remarks.push_back({"unit-assumed", 1,
                           "lengths are taken for millimetres, which become metres: --unit names "
                           "another unit"});
}

}  // namespace kvocaeio::host
