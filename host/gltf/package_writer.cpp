/// Bodies that share a box and a ball, and wires that are swept.
#include <map>
#include <tuple>

#include "convert/convert.h"
#include "gltf/glb_file.h"
#include "gltf/tube.h"
#include "gltf/writers.h"
#include "package/body_surface.h"
#include "package/scene.h"

namespace kvocaeio::host {

namespace {

constexpr unsigned kUncolored = 0xb4b4b4;
constexpr double kOpacityOfCap = 0.3;  // what is packed can be seen through it

/// Boxes have flat faces, balls are round.
ShadedSurface shadedBox() {
    ShadedSurface shaded;
    const BodySurface box = makeBox();
    for (const auto& polygon : box.polygons) {
        const auto first = static_cast<std::uint32_t>(shaded.points.size());
        std::array<double, 3> middle{};
        for (const std::int32_t corner : polygon)
            for (std::size_t axis = 0; axis < 3; ++axis)
                middle[axis] += box.points[static_cast<std::size_t>(corner)][axis] / 2;
        for (const std::int32_t corner : polygon) {
            shaded.points.push_back(turned(box.points[static_cast<std::size_t>(corner)], 1.0));
            shaded.normals.push_back(turned(middle, 1.0));
        }
        for (const std::uint32_t row : {0u, 1u, 2u, 0u, 2u, 3u})
            shaded.rows.push_back(first + row);
    }
    return shaded;
}

ShadedSurface shadedBall() {
    ShadedSurface shaded;
    const BodySurface ball = makeSphere(7, 16);
    for (const auto& point : ball.points) {
        shaded.points.push_back(turned(point, 1.0));
        shaded.normals.push_back(turned(point, 2.0));
    }
    for (const auto& polygon : ball.polygons)
        for (std::size_t i = 2; i < polygon.size(); ++i)
            for (const std::int32_t row : {polygon[0], polygon[i - 1], polygon[i]})
                shaded.rows.push_back(static_cast<std::uint32_t>(row));
    return shaded;
}

class SceneWriter {
  public:
    SceneWriter(const PackageScene& scene, double metres) : scene_(scene), metres_(metres) {}

    void write(const std::string& path, const std::string& name) {
        for (const PackageBody& body : scene_.bodies)
            addBody(body);
        for (const WireProfile& profile : scene_.profiles)
            addWires(profile);
        file_.write(path, file_.addNode({{"name", name}, {"children", children_}}));
    }

  private:
    /// Corners of a surface, which several meshes share.
    struct Shape {
        std::size_t points;
        std::size_t normals;
        std::size_t rows;
    };

    Shape add(const ShadedSurface& surface) {
        return {file_.addPoints(surface.points), file_.addNormals(surface.normals),
                file_.addIndices(surface.rows)};
    }

    std::size_t addMesh(const Shape& shape, unsigned color, double opacity) {
        Json triangles =
            trianglePrimitive(shape.points, shape.rows, file_.addMaterial(color, opacity, false));
        triangles["attributes"]["NORMAL"] = shape.normals;
        return file_.addMesh(Json::array({std::move(triangles)}));
    }

    void addBody(const PackageBody& body) {
        const double opacity = body.kind == "package cap" ? kOpacityOfCap : 1.0;
        const unsigned color = body.color.value_or(kUncolored);
        const auto [mesh, isNew] = meshes_.emplace(std::tuple(body.isBall, color, opacity), 0);
        if (isNew) {
            const auto shape = shapes_.find(body.isBall);
            const Shape& corners =
                shape != shapes_.end()
                    ? shape->second
                    : shapes_.emplace(body.isBall, add(body.isBall ? shadedBall() : shadedBox()))
                          .first->second;
            mesh->second = addMesh(corners, color, opacity);
        }
        const auto& [x, y, z] = body.center;
        const auto& [width, depth, height] = body.size;
        children_.push_back(
            file_.addNode({{"name", body.name},
                           {"mesh", mesh->second},
                           {"translation", {x * metres_, z * metres_, -y * metres_}},
                           {"scale", {width * metres_, height * metres_, depth * metres_}},
                           {"extras", {{"kind", body.kind}}}}));
    }

    void addWires(const WireProfile& profile) {
        ShadedSurface tubes;
        std::size_t wires = 0;
        for (const PackageWire& wire : scene_.wires)
            if (wire.profile == profile.number) {
                addTube(wire.path, wire.diameter, metres_, tubes);
                ++wires;
            }
        if (tubes.points.empty())
            return;
        const std::string number = std::to_string(profile.number);
        children_.push_back(file_.addNode(
            {{"name", profile.name.value_or("profile " + number)},
             {"mesh", addMesh(add(tubes), profile.color.value_or(kUncolored), 1.0)},
             {"extras", {{"kind", "bond wires"}, {"profile", profile.number}, {"wires", wires}}}}));
    }

    const PackageScene& scene_;
    double metres_;
    std::vector<std::size_t> children_;
    std::map<bool, Shape> shapes_;  // false: box, true: ball
    std::map<std::tuple<bool, unsigned, double>, std::size_t> meshes_;
    GlbFile file_;
};

}  // namespace

void writeGltfPackage(PackageScene& scene, const std::string& path, const ConvertOptions& options) {
    remarkUnit(scene.lengthUnit, scene.remarks);
    const std::string unit = scene.lengthUnit.empty() ? kUsualLengthUnit : scene.lengthUnit;
    SceneWriter(scene, metresIn(unit)).write(path, nameIn(options.source));
}

}  // namespace kvocaeio::host
