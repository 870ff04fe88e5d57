/// Bodies and wires as points, lines and polygons.
#include "vtk/package_file.h"

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <numeric>
#include <span>
#include <vector>

#include "package/body_surface.h"
#include "vtk/import_fields.h"
#include "vtk/vtk_file.h"

namespace kvocaeio::host {

namespace {

// Balls by the thousand are drawn with fewer points.
constexpr std::ptrdiff_t kManyBalls = 5000;

constexpr unsigned kGrey = 0xb4b4b4;

class PackageFile {
  public:
    PackageFile(const PackageScene& scene, const std::string& path, bool compress)
        : scene_(scene),
          file_(path, "PolyData", compress),
          box_(makeBox()),
          ball_(std::ranges::count(scene.bodies, true, &PackageBody::isBall) < kManyBalls
                    ? makeSphere(5, 12)
                    : makeSphere(3, 8)) {
        for (const PackageBody& body : scene.bodies) {
            polygons_ += surfaceOf(body).polygons.size();
            points_ += surfaceOf(body).points.size();
        }
        for (const PackageWire& wire : scene.wires)
            pointsOfWires_ += wire.path.size() / 3;
        points_ += pointsOfWires_;
    }

    void write(const std::string& source) {
        file_.open("Piece", " NumberOfPoints=\"" + std::to_string(points_) +
                                "\" NumberOfVerts=\"0\" NumberOfLines=\"" +
                                std::to_string(scene_.wires.size()) +
                                "\" NumberOfStrips=\"0\" NumberOfPolys=\"" +
                                std::to_string(polygons_) + "\"");
        // A polygon has at most four corners.
        if (std::max(points_, 4 * polygons_) <= std::numeric_limits<std::int32_t>::max()) {
            writePolygons<std::int32_t>();
            writeLines<std::int32_t>();
        } else {
            writePolygons<std::int64_t>();
            writeLines<std::int64_t>();
        }
        writePoints();
        writeCellData();
        file_.close();
        writeTables(source);
        file_.finish();
    }

  private:
    const BodySurface& surfaceOf(const PackageBody& body) const {
        return body.isBall ? ball_ : box_;
    }

    void writeTables(const std::string& source) {
        std::vector<std::string> names;
        std::vector<std::string> kinds;
        for (const PackageBody& body : scene_.bodies) {
            names.push_back(body.name);
            kinds.push_back(body.kind);
        }
        std::vector<std::string> profiles;
        std::vector<std::int32_t> numbers;
        for (const WireProfile& profile : scene_.profiles) {
            profiles.push_back(profile.name.value_or(""));
            numbers.push_back(profile.number);
        }
        file_.open("FieldData");
        writeImportFields(file_, scene_.imported, source, scene_.lengthUnit);
        file_.array("ProfileNumbers", std::span<const std::int32_t>(numbers));
        file_.strings("ProfileNames", profiles);
        file_.strings("BodyKinds", kinds);
        file_.strings("BodyNames", names);
        file_.close();
    }

    /// An array with one number for each wire and for all polygons of a body.
    template <class Number, class OfWire, class OfBody>
    void writeData(std::string_view name, const OfWire& ofWire, const OfBody& ofBody) {
        file_.beginArray<Number>(name, scene_.wires.size() + polygons_);
        for (std::size_t i = 0; i < scene_.wires.size(); ++i)
            file_.append(static_cast<Number>(ofWire(i)), 1);
        for (std::size_t i = 0; i < scene_.bodies.size(); ++i)
            file_.append(static_cast<Number>(ofBody(i)),
                         surfaceOf(scene_.bodies[i]).polygons.size());
    }

    void writeCellData() {
        const auto none = [](std::size_t) { return -1; };
        const auto self = [](std::size_t i) { return i; };
        file_.open("CellData");
        writeData<std::int32_t>("Body", none, self);
        writeData<std::int32_t>("Wire", self, none);
        writeData<std::int32_t>(
            "Profile", [&](std::size_t i) { return scene_.wires[i].profile; }, none);
        writeData<double>(
            "Diameter", [&](std::size_t i) { return scene_.wires[i].diameter; },
            [&](std::size_t i) {
                return scene_.bodies[i].isBall ? scene_.bodies[i].size[0] : 0.0;
            });
        writeColors();
        file_.close();
    }

    void writeColors() {
        std::map<int, unsigned> ofProfiles;
        for (const WireProfile& profile : scene_.profiles)
            ofProfiles[profile.number] = profile.color.value_or(kGrey);
        const auto append = [&](unsigned color, std::size_t times) {
            std::vector<std::uint8_t> bytes;
            for (std::size_t i = 0; i < times; ++i)
                for (const unsigned shift : {0u, 8u, 16u})
                    bytes.push_back(static_cast<std::uint8_t>(color >> shift & 0xffu));
            file_.append(std::span<const std::uint8_t>(bytes));
        };
        file_.beginArray<std::uint8_t>("Color", 3 * (scene_.wires.size() + polygons_), 3);
        for (const PackageWire& wire : scene_.wires)
            append(ofProfiles[wire.profile], 1);
        for (const PackageBody& body : scene_.bodies)
            append(body.color.value_or(kGrey), surfaceOf(body).polygons.size());
    }

    /// Those of the wires come first, as their lines do.
    void writePoints() {
        file_.open("Points");
        file_.beginArray<double>("Points", 3 * points_, 3);
        for (const PackageWire& wire : scene_.wires)
            file_.append(std::span<const double>(wire.path));
        for (const PackageBody& body : scene_.bodies)
            for (const auto& point : surfaceOf(body).points) {
                std::array<double, 3> place{};
                for (std::size_t axis = 0; axis < 3; ++axis)
                    place[axis] = body.center[axis] + point[axis] * body.size[axis];
                file_.append(std::span<const double>(place));
            }
        file_.close();
    }

    template <class Index>
    void writeLines() {
        std::vector<Index> numbers;
        for (const PackageWire& wire : scene_.wires)
            numbers.push_back(static_cast<Index>(wire.path.size() / 3));
        std::partial_sum(numbers.begin(), numbers.end(), numbers.begin());
        file_.open("Lines");
        file_.array("offsets", std::span<const Index>(numbers));
        numbers.resize(pointsOfWires_);
        std::iota(numbers.begin(), numbers.end(), Index{0});
        file_.array("connectivity", std::span<const Index>(numbers));
        file_.close();
    }

    template <class Index>
    void writePolygons() {
        std::vector<Index> numbers;  // of one body
        const auto append = [&] {
            file_.append(std::span<const Index>(numbers));
            numbers.clear();
        };
        file_.open("Polys");
        file_.beginArray<Index>("offsets", polygons_);
        Index end = 0;
        for (const PackageBody& body : scene_.bodies) {
            for (const auto& polygon : surfaceOf(body).polygons)
                numbers.push_back(end += static_cast<Index>(polygon.size()));
            append();
        }
        file_.beginArray<Index>("connectivity", static_cast<std::size_t>(end));
        auto first = static_cast<Index>(pointsOfWires_);
        for (const PackageBody& body : scene_.bodies) {
            for (const auto& polygon : surfaceOf(body).polygons)
                for (const std::int32_t point : polygon)
                    numbers.push_back(first + static_cast<Index>(point));
            append();
            first += static_cast<Index>(surfaceOf(body).points.size());
        }
        file_.close();
    }

    const PackageScene& scene_;
    VtkFile file_;
    BodySurface box_;
    BodySurface ball_;
    std::size_t points_ = 0;
    std::size_t polygons_ = 0;
    std::size_t pointsOfWires_ = 0;
};

}  // namespace

void writeVtkPackage(PackageScene& scene, const std::string& path, const ConvertOptions& options) {
    PackageFile(scene, path, options.compress).write(options.source);
}

}  // namespace kvocaeio::host
