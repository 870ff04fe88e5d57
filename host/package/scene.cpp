/// What the reader of packages hands out, taken over.
#include "package/scene.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <stdexcept>

#include "mesh_checks.h"
#include <kvocaeio/package.h>

namespace kvocaeio::host {

namespace {

// The longest name that a file or report can give, terminator included.
constexpr std::size_t kNameRoom = 1024;

double lengthOf(const std::vector<double>& points) {
    double length = 0.0;
    for (std::size_t i = 3; i + 2 < points.size(); i += 3)
        length += std::hypot(points[i] - points[i - 3], points[i + 1] - points[i - 2],
                             points[i + 2] - points[i - 1]);
    return length;
}

// The reader hands out no kinds but that of a ball. A 3DI file's own names tell the others.
std::string kindOf(const PackageBody& body, PackageSource source) {
    if (body.isBall)
        return "solder ball";
    if (body.name == "SUBSTRATE")
        return "substrate";
    if (source == PackageSource::kCadence)
        return "stack member";
    if (body.name == "PACKAGECAP")
        return "package cap";
    if (body.name.find("INTERPOSER") != std::string::npos)
        return "interposer";
    return body.name.find("SPACER") != std::string::npos ? "spacer" : "die";
}

/// Sizes that no package has: a body of which the file describes no extents is some 1e10 of the
/// file's unit wide.
constexpr double kLargestSize = 1e4;

/// Makes sizes what they are; false where the body has none.
bool takeExtents(PackageBody& body) {
    if (!isFinitePlace(body.center.data()))
        return false;
    if (body.isBall)
        body.size.fill(body.size[0]);
    return std::ranges::all_of(body.size, [](double& size) {
        size = std::fabs(size);
        return size <= kLargestSize;
    });
}

bool hasPath(const PackageWire& wire) {
    return wire.path.size() >= 6 && std::isfinite(wire.diameter) &&
           std::ranges::all_of(wire.path, [](double value) { return std::isfinite(value); });
}

}  // namespace

std::vector<PackageBody> takeBodies(CKVOCadenceReader& reader, PackageSource source) {
    std::vector<PackageBody> bodies;
    char name[kNameRoom];
    std::array<double, 5> size{};
    for (int i = 0; i < reader.GetComponentCount(); ++i) {
        PackageBody& body = bodies.emplace_back();
        int isBall = 0;
        unsigned color = 0;
        reader.GetComponentData(i, name, isBall, body.center.data(), size.data(), color);
        body.name = name;
        body.isBall = isBall != 0;
        body.kind = kindOf(body, source);
        std::copy_n(size.begin(), 3, body.size.begin());
        if (source == PackageSource::k3di)
            body.color = color;
    }
    return bodies;
}

std::vector<WireProfile> takeProfiles(CKVOCadenceReader& reader) {
    std::map<int, WireProfile> profiles;
    std::vector<double> points;
    for (int i = 0; i < reader.GetWireLineCount(); ++i) {
        int profile = 0;
        double diameter = 0.0;
        reader.GetWirePolyLine(i, points, profile, diameter);
        WireProfile& sum = profiles[profile];
        sum.smallestDiameter = sum.wires == 0 ? diameter : std::min(sum.smallestDiameter, diameter);
        sum.largestDiameter = sum.wires == 0 ? diameter : std::max(sum.largestDiameter, diameter);
        ++sum.wires;
        sum.points += points.size() / 3;
        sum.length += lengthOf(points);
    }
    // Models come first, without a gap: the first number that has none ends them.
    const auto describe = [&](int profileNumber) {
        const char* name = nullptr;
        double diameter = 0.0;
        unsigned color = 0;
        bool isUsed = false;
        try {
            isUsed = reader.GetWireProfileData(profileNumber, name, diameter, color);
        } catch (const std::out_of_range&) {
            // No such model, or no colour at the place that the profile's number names.
        }
        if (name == nullptr)
            return false;
        profiles[profileNumber].name = name;
        if (isUsed)
            profiles[profileNumber].color = color;
        return true;
    };
    for (int n = 1; describe(n); ++n) {
    }
    std::vector<WireProfile> taken;
    for (auto& [profileNumber, profile] : profiles) {
        profile.number = profileNumber;
        taken.push_back(std::move(profile));
    }
    return taken;
}

void scale(PackageScene& scene, double factor) {
    scene.lengthUnit.clear();
    const auto multiply = [&](auto& lengths) {
        for (double& length : lengths)
            length *= factor;
    };
    for (PackageBody& body : scene.bodies) {
        multiply(body.center);
        multiply(body.size);
    }
    for (PackageWire& wire : scene.wires) {
        multiply(wire.path);
        wire.diameter *= factor;
    }
}

PackageScene takeScene(CKVOCadenceReader& reader, PackageSource source) {
    PackageScene scene;
    scene.bodies = takeBodies(reader, source);
    leaveOut(scene.losses, "bodies-without-extents",
             std::erase_if(scene.bodies, [](PackageBody& body) { return !takeExtents(body); }),
             "bodies", " without a place or extents");
    scene.profiles = takeProfiles(reader);
    std::size_t lost = 0;
    for (int i = 0; i < reader.GetWireLineCount(); ++i) {
        PackageWire wire{};
        reader.GetWirePolyLine(i, wire.path, wire.profile, wire.diameter);
        if (hasPath(wire))
            scene.wires.push_back(std::move(wire));
        else
            ++lost;
    }
    leaveOut(scene.losses, "wires-without-path", lost, "wires", " without a path");
    return scene;
}

}  // namespace kvocaeio::host
