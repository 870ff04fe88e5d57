/// A binary glTF file as a viewer would take it.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace kvocaeio::test {

class Glb {
  public:
    using Point = std::array<float, 3>;
    using Triangle = std::array<Point, 3>;

    explicit Glb(const std::string& file) {
        if (file.substr(0, 4) != "glTF" || word(file, 4) != 2 || word(file, 8) != file.size() ||
            file.substr(16, 4) != "JSON")
            throw std::runtime_error("no binary glTF file");
        const std::size_t size = word(file, 12);
        document = nlohmann::json::parse(file.substr(20, size));
        if (file.substr(24 + size, 4) != std::string("BIN\0", 4))
            throw std::runtime_error("no binary chunk");
        bytes_ = file.substr(28 + size, word(file, 20 + size));
    }

    nlohmann::json document;

    /// The first node of that name.
    const nlohmann::json& node(const std::string& name) const {
        for (const nlohmann::json& node : document.at("nodes"))
            if (node.at("name") == name)
                return node;
        throw std::runtime_error("no node " + name);
    }
    const nlohmann::json& primitive(const std::string& name) const {
        return document.at("meshes").at(numberIn(node(name), "mesh")).at("primitives").at(0);
    }
    /// The colour factor of its material.
    std::vector<double> color(const std::string& name) const {
        return document.at("materials")
            .at(numberIn(primitive(name), "material"))
            .at("pbrMetallicRoughness")
            .at("baseColorFactor");
    }

    template <class Value>
    std::vector<Value> values(const nlohmann::json& accessor) const {
        const nlohmann::json& entry = document.at("accessors").at(accessor.get<std::size_t>());
        const nlohmann::json& view = document.at("bufferViews").at(numberIn(entry, "bufferView"));
        std::vector<Value> read(numberIn(entry, "count"));
        std::memcpy(read.data(), bytes_.data() + view.at("byteOffset").get<std::size_t>(),
                    read.size() * sizeof(Value));
        return read;
    }
    std::vector<Point> points(const std::string& name) const {
        return values<Point>(primitive(name).at("attributes").at("POSITION"));
    }
    std::vector<Triangle> triangles(const std::string& name) const {
        const std::vector<Point> corners = points(name);
        const auto rows = values<std::uint32_t>(primitive(name).at("indices"));
        std::vector<Triangle> triangles;
        for (std::size_t i = 0; i + 2 < rows.size(); i += 3)
            triangles.push_back(
                {corners.at(rows[i]), corners.at(rows[i + 1]), corners.at(rows[i + 2])});
        return triangles;
    }

  private:
    static std::size_t numberIn(const nlohmann::json& entry, const char* key) {
        return entry.at(key).get<std::size_t>();
    }
    static std::uint32_t word(const std::string& file, std::size_t at) {
        std::uint32_t value = 0;
        std::memcpy(&value, file.data() + at, 4);
        return value;
    }

    std::string bytes_;
};

/// What is inside of closed faces that are counter-clockwise as seen from outside.
inline double volumeOf(const std::vector<Glb::Triangle>& triangles) {
    double volume = 0.0;
    for (const auto& [a, b, c] : triangles)
        volume += a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) +
                  a[2] * (b[0] * c[1] - b[1] * c[0]);
    return volume / 6.0;
}

/// Whether each edge has a face on either side.
inline bool isClosed(const std::vector<Glb::Triangle>& triangles) {
    std::map<std::pair<Glb::Point, Glb::Point>, int> edges;
    for (const Glb::Triangle& triangle : triangles)
        for (std::size_t i = 0; i < 3; ++i) {
            ++edges[{triangle[i], triangle[(i + 1) % 3]}];
            --edges[{triangle[(i + 1) % 3], triangle[i]}];
        }
    for (const auto& [edge, balance] : edges)
        if (balance != 0)
            return false;
    return true;
}

}  // namespace kvocaeio::test
